// program.cpp - see program.h.
#include "program.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstdio>
#include <new>

namespace
{

int complain(const char* name, const std::string& message, int status)
{
    std::fprintf(stderr, "%s: %s\n", name, printable(message).c_str());
    return status;
}

// The bytes of the character that begins there, 1 for a byte that begins none.
std::size_t characterSize(const std::string& text, std::size_t begin)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto size = static_cast<std::size_t>(std::countl_one(byte(begin)));
    if (size < 2 || size > 4 || begin + size > text.size())
        return 1;
    for (std::size_t i = begin + 1; i < begin + size; ++i)
        if (byte(i) >> 6 != 2)
            return 1;
    return size;
}

} // namespace

std::string printable(std::string text)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t size = characterSize(text, i);
        const auto byte = static_cast<unsigned char>(text[i]);
        if (size == 1 && (byte >= 0x80 || std::iscntrl(byte)))
            text[i] = '?';
        i += size;
    }
    return text;
}

std::string counted(std::size_t count, const std::string& noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string formatted(const char* format, double value)
{
    char text[256];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

void refuseStatus(int status)
{
    throw Failure("the transform failed with status " + std::to_string(status));
}

int runProgram(const char* name, int argc, char** argv, void (*run)(int argc, char** argv))
{
    try {
        run(argc, argv);
        if (std::fflush(stdout) != 0 || std::ferror(stdout))
            throw Failure("cannot write the results to standard output");
        return 0;
    } catch (const UsageFailure& failure) {
        return complain(name, failure.what(), 2);
    } catch (const std::bad_alloc&) {
        return complain(name, "not enough memory", 1);
    } catch (const std::exception& failure) {
        return complain(name, failure.what(), 1);
    }
}
