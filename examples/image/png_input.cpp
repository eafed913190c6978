// png_input.cpp - reading through libpng. Its simplified interface would bend 16-bit samples to
// linear light; this uses the other one, whose errors come back by longjmp.
//
// Two rules keep that safe: libpng is only called inside attempt(), and what is called there owns
// nothing, as no destructor runs on the way back.
#include "png_input.h"

#include "failure.h"

#include <array>
#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <png.h>

namespace examples
{
namespace
{

constexpr std::int64_t mostPixels = std::int64_t{1} << 26;

std::string lowerFirst(std::string text)
{
    if (text.size() > 1 && text[0] >= 'A' && text[0] <= 'Z' && text[1] >= 'a')
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

class PngReader
{
public:
    explicit PngReader(const std::string& path) : path_(path), file_(std::fopen(path.c_str(), "rb"))
    {
        if (!file_)
            throw Failure("cannot read '" + path_ + "': " + std::strerror(errno));
        checkSignature();
        png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning);
        info_ = png_ ? png_create_info_struct(png_) : nullptr;
        if (!info_) {
            png_destroy_read_struct(&png_, nullptr, nullptr);
            throw std::bad_alloc();
        }
    }
    ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    Picture read()
    {
        readHeader();
        Picture picture;
        picture.width = static_cast<int>(png_get_image_width(png_, info_));
        picture.height = static_cast<int>(png_get_image_height(png_, info_));
        picture.channels = png_get_channels(png_, info_);
        picture.depth = png_get_bit_depth(png_, info_);

        const std::size_t rowBytes = png_get_rowbytes(png_, info_);
        std::vector<png_byte> bytes(rowBytes * static_cast<std::size_t>(picture.height));
        std::vector<png_bytep> rows;
        for (std::size_t start = 0; start < bytes.size(); start += rowBytes)
            rows.push_back(&bytes[start]);
        attempt([&] {
            png_read_image(png_, rows.data());
            png_read_end(png_, nullptr);
        });

        picture.samples.resize(picture.rowSamples() * static_cast<std::size_t>(picture.height));
        for (std::size_t i = 0; i < picture.samples.size(); ++i)
            picture.samples[i] =
                picture.depth == 8
                    ? bytes[i]
                    : static_cast<std::uint16_t>(bytes[2 * i] << 8 | bytes[2 * i + 1]);
        return picture;
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    [[noreturn]] static void onError(png_structp png, png_const_charp message)
    {
        auto* reader = static_cast<PngReader*>(png_get_error_ptr(png));
        std::snprintf(reader->message_.data(), reader->message_.size(), "%s", message);
        png_longjmp(png, 1);
    }
    static void onWarning(png_structp, png_const_charp) {}

    template <typename Calls> bool succeeds(const Calls& calls)
    {
        if (setjmp(png_jmpbuf(png_)))
            return false;
        calls();
        return true;
    }

    template <typename Calls> void attempt(const Calls& calls)
    {
        if (succeeds(calls))
            return;
        const bool ended = std::feof(file_.get()) != 0;
        throw Failure("'" + path_ +
                      "': " + (ended ? "the file ends too early" : lowerFirst(message_.data())));
    }

    void checkSignature()
    {
        std::array<png_byte, 8> signature = {};
        errno = 0;
        const std::size_t size = std::fread(signature.data(), 1, signature.size(), file_.get());
        if (std::ferror(file_.get()))
            throw Failure("cannot read '" + path_ + "': " + std::strerror(errno));
        if (png_sig_cmp(signature.data(), 0, signature.size()) != 0 || size < signature.size())
            throw Failure("'" + path_ + "' is not a PNG file");
    }

    // Up to the first pixel, with everything set so that samples come as 8 or 16 bits.
    void readHeader()
    {
        attempt([&] {
            png_init_io(png_, file_.get());
            png_set_sig_bytes(png_, 8);
            png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX); // ours comes next
            png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, 0);
            png_read_info(png_, info_);
        });
        const std::int64_t width = png_get_image_width(png_, info_);
        const std::int64_t height = png_get_image_height(png_, info_);
        if (width * height > mostPixels)
            throw Failure("'" + path_ + "': " + std::to_string(width) + " x " +
                          std::to_string(height) + " pixels are more than the " +
                          std::to_string(mostPixels) + " that can be handled");
        attempt([&] {
            png_set_expand(png_);
            png_set_interlace_handling(png_);
            png_read_update_info(png_, info_);
        });
    }

    std::string path_;
    std::unique_ptr<std::FILE, Close> file_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    std::array<char, 200> message_ = {};
};

} // namespace

Picture readPng(const std::string& path)
{
    return PngReader(path).read();
}

} // namespace examples
