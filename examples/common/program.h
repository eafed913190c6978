// program.h - the frame of an example: failures, each a one-line message, and small words.
#ifndef EXAMPLES_PROGRAM_H
#define EXAMPLES_PROGRAM_H

#include <chrono>
#include <rvngenmx.h>
#include <stdexcept>
#include <string>

// The input, the output or the work on them is at fault.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The command line is at fault.
struct UsageFailure : Failure {
    using Failure::Failure;
};

// Calls run(argc, argv) and returns the exit status: 0 done, 1 the files are at fault, 2 the
// command line is at fault. What went wrong is told on standard error in one line that begins with
// the program's name; a standard output that does not take what was printed counts as well.
int runProgram(const char* name, int argc, char** argv, void (*run)(int argc, char** argv));

// Throws Failure for a status of the library, from C or C++, other than that of no error.
[[noreturn]] void refuseStatus(int status);
template <typename Status> void check(Status status)
{
    if (static_cast<int>(status) != RvnStatusNoError)
        refuseStatus(static_cast<int>(status));
}

// The text with question marks for control characters and for bytes that are no UTF-8: file names
// may hold line feeds and the like, and a message or a title stays one line.
std::string printable(std::string text);

// "1 sample", "2 samples"
std::string counted(std::size_t count, const std::string& noun);

// The text of a printf format for one number.
std::string formatted(const char* format, double value);

// Calls work() and adds the seconds that it took.
template <typename Work> void timed(double& seconds, Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

#endif
