// plot.cpp - gnuplot reads the script from a file without a name and writes into the open part
// file, both by the numbers of their descriptors: no name has to be quoted.
#include "plot.h"

#include "program.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

namespace
{

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File temporaryFile(const std::string& content)
{
    File file(std::tmpfile(), std::fclose);
    if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
        std::fflush(file.get()) != 0)
        throw Failure("cannot write a temporary file");
    std::rewind(file.get());
    return file;
}

// Its last line that is not empty: gnuplot ends with what was wrong.
std::string lastLine(std::FILE* file)
{
    std::rewind(file);
    std::string last;
    std::array<char, 400> line;
    while (std::fgets(line.data(), line.size(), file))
        if (line[0] != '\n')
            last.assign(line.data(), std::strcspn(line.data(), "\n"));
    return last;
}

// The end of every PNG file, whose length and checksum never differ.
bool endsAsPng(std::FILE* file)
{
    constexpr unsigned char end[] = {0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xae, 0x42, 0x60, 0x82};
    unsigned char last[sizeof end] = {};
    std::fseek(file, -static_cast<long>(sizeof last), SEEK_END);
    return std::fread(last, 1, sizeof last, file) == sizeof last &&
           std::memcmp(last, end, sizeof end) == 0;
}

std::string descriptor(std::FILE* file)
{
    return "/dev/fd/" + std::to_string(fileno(file)) + " ";
}

} // namespace

Plot::Plot(int width, int height)
{
    script_.precision(9);
    script_ << "set terminal pngcairo noenhanced font 'Sans,11' background '#ffffff' size " << width
            << "," << height << "\nset encoding utf8\n"
            << "set border linecolor '#666666'\nset tics textcolor '#000000' nomirror\n";
}

Plot& Plot::operator<<(const std::string& line)
{
    script_ << line << "\n";
    return *this;
}

void Plot::add(std::span<const float> values)
{
    script_.write(reinterpret_cast<const char*>(values.data()),
                  static_cast<std::streamsize>(values.size_bytes()));
    script_ << "\n";
}

void Plot::draw(PartFile& file) const
{
    const File script = temporaryFile(script_.str()), words = temporaryFile("");
    const std::string command = "gnuplot --default-settings <" + descriptor(script.get()) + ">" +
                                descriptor(file.stream()) + "2>" + descriptor(words.get());
    if (std::system(command.c_str()) != 0)
        throw Failure("gnuplot failed: " + lastLine(words.get()));
    errno = 0; // what gnuplot met is not known here
    if (!endsAsPng(file.stream()))
        file.fail("not all of the picture was written");
}

std::string quoted(const std::string& text)
{
    std::string result = "'";
    for (const char character : printable(text))
        result += character == '\'' ? "''" : std::string(1, character);
    return result + "'";
}

std::string plotNumber(double value)
{
    return formatted("%.9g", value);
}

std::string titleOf(const std::string& path)
{
    constexpr int mostCharacters = 74;
    const std::string name = printable(std::filesystem::path(path).filename().string());
    int characters = 0;
    for (std::size_t i = 0; i < name.size(); ++i)
        if ((name[i] & 0xc0) != 0x80 && ++characters > mostCharacters)
            return name.substr(0, i) + "...";
    return name;
}
