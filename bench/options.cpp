// The command line: options without a value set a field, options with one take the next argument.

#include "options.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace rvn::bench
{

namespace
{

constexpr int quickRepetitions = 7;
constexpr int mostRepetitions = 1000;
constexpr double quickSeconds = 0.004;

[[noreturn]] void refuse(std::string_view option, std::string_view value, std::string_view wanted)
{
    throw std::invalid_argument(std::string(option) + " '" + std::string(value) +
                                "': " + std::string(wanted));
}

// The whole of text as a number, or nothing.
template <typename Number> std::optional<Number> number(std::string_view text)
{
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::vector<std::string_view> splitAtCommas(std::string_view text)
{
    std::vector<std::string_view> parts;
    for (std::size_t comma; (comma = text.find(',')) != text.npos; text.remove_prefix(comma + 1))
        parts.push_back(text.substr(0, comma));
    parts.push_back(text);
    return parts;
}

// "2-8,16": lengths and ranges of them, to an ascending list without repeats.
std::vector<int> parseLengths(std::string_view option, std::string_view value)
{
    std::vector<int> lengths;
    for (const std::string_view part : splitAtCommas(value)) {
        const std::size_t dash = part.find('-');
        const std::optional<int> first = number<int>(part.substr(0, dash));
        const std::optional<int> last =
            dash == part.npos ? first : number<int>(part.substr(dash + 1));
        if (!first || !last || *first < shortestLength || *last > longestLength || *first > *last)
            refuse(option, value, "lengths from 2 to 64, as in 8 or 2-16 or 3,5,60-64");
        for (int length = *first; length <= *last; ++length)
            lengths.push_back(length);
    }
    std::ranges::sort(lengths);
    lengths.erase(std::unique(lengths.begin(), lengths.end()), lengths.end());
    return lengths;
}

Precision parsePrecision(std::string_view option, std::string_view value)
{
    if (value == "32fc")
        return Precision::Single;
    if (value == "64fc")
        return Precision::Double;
    refuse(option, value, "32fc or 64fc");
}

int parseRepetitions(std::string_view option, std::string_view value)
{
    const std::optional<int> repetitions = number<int>(value);
    if (!repetitions || *repetitions < 1 || *repetitions > mostRepetitions)
        refuse(option, value, "a count from 1 to 1000");
    return *repetitions;
}

std::vector<double> parseLimits(std::string_view option, std::string_view value)
{
    std::vector<double> limits;
    for (const std::string_view part : splitAtCommas(value)) {
        const std::optional<double> limit = number<double>(part);
        if (!limit || !(*limit >= 0) || !(*limit < 1000))
            refuse(option, value, "ratios, as in 0.9 or 0.9,1.0");
        limits.push_back(*limit);
    }
    return limits;
}

std::string parseFolder(std::string_view option, std::string_view value)
{
    if (!std::filesystem::is_directory(value))
        refuse(option, value, "not a folder");
    return std::string(value);
}

} // namespace

Options parseOptions(std::span<char* const> arguments)
{
    Options options;
    options.lengths.resize(longestLength - shortestLength + 1);
    std::iota(options.lengths.begin(), options.lengths.end(), shortestLength);
    std::optional<int> repetitions;
    bool quick = false;

    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view option = arguments[i];
        const auto value = [&]() -> std::string_view {
            if (++i == arguments.size())
                refuse(option, "", "a value is missing");
            return arguments[i];
        };
        if (option == "--quick")
            quick = true;
        else if (option == "--in-place")
            options.placement = Placement::InPlace;
        else if (option == "--inverse")
            options.direction = Direction::Inverse;
        else if (option == "--lengths")
            options.lengths = parseLengths(option, value());
        else if (option == "--precision")
            options.precisions = {parsePrecision(option, value())};
        else if (option == "--repetitions")
            repetitions = parseRepetitions(option, value());
        else if (option == "--limit")
            options.limits = parseLimits(option, value());
        else if (option == "--output")
            options.output = parseFolder(option, value());
        else
            refuse("option", option, "unknown; tools/bench --help lists the options");
    }

    if (quick) {
        options.repetitions = quickRepetitions;
        options.seconds = quickSeconds;
    }
    options.repetitions = repetitions.value_or(options.repetitions);
    return options;
}

} // namespace rvn::bench
