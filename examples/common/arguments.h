// arguments.h - what the examples' command lines have in common, beside getopt_long.
#ifndef EXAMPLES_ARGUMENTS_H
#define EXAMPLES_ARGUMENTS_H

#include <string>
#include <string_view>

namespace examples
{

// Options that have a long name only take values from here on, above every character.
constexpr int firstLongOption = 256;

// The whole number that an option's text stands for; throws UsageFailure, naming what the number
// is, for anything else and for numbers out of range.
int wholeNumber(std::string_view name, std::string_view text, int least, int most);

// The share that an option's text stands for, a number above 0 and up to 1; throws UsageFailure for
// anything else.
double shareOf(std::string_view text);

// The option getopt_long stumbled over, as the user wrote it.
std::string offendingOption(char** argv);

// The one argument that getopt_long left over; throws UsageFailure unless there is just one.
std::string soleInput(int argc, char** argv);

} // namespace examples

#endif
