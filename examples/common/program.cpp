// program.cpp - see program.h.
#include "program.h"

#include "failure.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <new>

namespace examples
{
namespace
{

int complain(const char* name, const std::string& message, int status)
{
    std::fprintf(stderr, "%s: %s\n", name, printable(message).c_str());
    return status;
}

} // namespace

std::string printable(std::string text)
{
    std::ranges::replace_if(
        text, [](unsigned char character) { return std::iscntrl(character) != 0; }, '?');
    return text;
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

} // namespace examples
