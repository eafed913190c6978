// failure.h - the two kinds of trouble a user can meet, each a one-line message.
//
// Everything below main() throws one of these; runProgram() prints the message and sets the exit
// status.
#ifndef EXAMPLES_FAILURE_H
#define EXAMPLES_FAILURE_H

#include <stdexcept>

namespace examples
{

// The input, the output or the work on them is at fault.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The command line is at fault.
class UsageFailure : public Failure
{
public:
    using Failure::Failure;
};

} // namespace examples

#endif
