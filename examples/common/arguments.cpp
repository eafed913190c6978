// arguments.cpp - see arguments.h.
#include "arguments.h"

#include "failure.h"

#include <charconv>
#include <getopt.h>

namespace examples
{

int wholeNumber(std::string_view name, std::string_view text, int least, int most)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || value < least || value > most)
        throw UsageFailure(std::string(name) + " must be a whole number from " +
                           std::to_string(least) + " to " + std::to_string(most) + ", not '" +
                           std::string(text) + "'");
    return value;
}

double shareOf(std::string_view text)
{
    double share = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), share);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(share > 0 && share <= 1))
        throw UsageFailure("the share must be a number above 0 and up to 1, not '" +
                           std::string(text) + "'");
    return share;
}

std::string offendingOption(char** argv)
{
    if (optopt > 0 && optopt < firstLongOption)
        return std::string("-") + static_cast<char>(optopt);
    return argv[optind - 1];
}

std::string soleInput(int argc, char** argv)
{
    if (optind >= argc)
        throw UsageFailure("no input file; see --help");
    if (optind + 1 < argc)
        throw UsageFailure("one input file at a time: '" + std::string(argv[optind + 1]) +
                           "' is too many");
    return argv[optind];
}

} // namespace examples
