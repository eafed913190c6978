// program.cpp - see program.h.
#include "program.h"

#include "failure.h"

#include <cctype>
#include <cstdio>
#include <new>
#include <string>

namespace examples
{
namespace
{

// File names may hold line feeds; the message stays one line.
int complain(const char* name, std::string message, int status)
{
    for (char& character : message)
        if (std::iscntrl(static_cast<unsigned char>(character)))
            character = '?';
    std::fprintf(stderr, "%s: %s\n", name, message.c_str());
    return status;
}

} // namespace

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
