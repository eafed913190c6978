// png_file.cpp - the picture is written beside its place under a name of its own, then renamed.
#include "png_file.h"

#include "failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <png.h>
#include <unistd.h>

namespace spectrogram
{
namespace
{

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path, const std::string& reason)
{
    throw Failure("cannot write '" + path + "': " + reason);
}

// The file a name stands for, its links followed; only a plain file may be replaced.
fs::path destination(const std::string& path)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
        return path;
    if (!fs::is_regular_file(status))
        fail(path, "is not a plain file");
    const fs::path target = fs::canonical(path, error);
    return error ? fs::path(path) : target;
}

// Returns what went wrong, or nothing.
std::string writeTo(const char* path, const Canvas& canvas)
{
    std::FILE* file = std::fopen(path, "wbx");
    if (!file)
        return std::strerror(errno);
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(canvas.width());
    image.height = static_cast<png_uint_32>(canvas.height());
    image.format = PNG_FORMAT_RGB;
    std::string reason;
    errno = 0;
    if (!png_image_write_to_stdio(&image, file, 0, canvas.rgb().data(), 0, nullptr))
        reason = errno != 0 ? std::strerror(errno) : image.message;
    if (std::fclose(file) != 0 && reason.empty())
        reason = std::strerror(errno);
    return reason;
}

} // namespace

void writePng(const std::string& path, const Canvas& canvas)
{
    const fs::path target = destination(path);
    const std::string part = target.string() + "." + std::to_string(getpid()) + ".part";
    std::string reason = writeTo(part.c_str(), canvas);
    if (reason.empty() && std::rename(part.c_str(), target.c_str()) != 0)
        reason = std::strerror(errno);
    if (reason.empty())
        return;
    std::remove(part.c_str());
    fail(path, reason);
}

} // namespace spectrogram
