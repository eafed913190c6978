// The command line is a table: a row names an option, tells the value that it wants, if any, and
// sets the field. What was given is applied in the order of the table.

#include "options.h"

#include "option_values.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace rvn::bench
{

namespace
{

using Text = std::string_view;

struct Option {
    Text name;
    std::span<const Family> families; // those that it concerns; empty: the studies too
    bool (*set)(Options&, Text);      // false: the value is refused
    Text wanted;                      // the value, for people; empty: it takes none
};

// The field that a value sets, if the value is good.
template <typename Value> bool take(Value& field, std::optional<Value> value)
{
    if (value)
        field = std::move(*value);
    return value.has_value();
}

// The value that a name stands for.
template <typename Value, std::size_t count>
bool choose(std::vector<Value>& field, Text name,
            const std::array<std::pair<Text, Value>, count>& choices)
{
    const auto chosen = std::ranges::find(choices, name, &std::pair<Text, Value>::first);
    if (chosen != choices.end())
        field = {chosen->second};
    return chosen != choices.end();
}

constexpr std::array familyNames = {
    std::pair(Text("complex"), Family::Complex), std::pair(Text("real"), Family::Real),
    std::pair(Text("hartley"), Family::Hartley), std::pair(Text("wht"), Family::Wht),
    std::pair(Text("dct4"), Family::Dct4)};

constexpr std::array precisionNames = {
    std::pair(Text("32fc"), Precision::Single), std::pair(Text("32f"), Precision::Single),
    std::pair(Text("64fc"), Precision::Double), std::pair(Text("64f"), Precision::Double)};

template <Study study> bool addStudy(Options& options, Text)
{
    options.studies.push_back(study);
    options.families.clear();
    return true;
}

bool setQuick(Options& options, Text)
{
    options.quick = true;
    options.sizes = powersOfTwo(smallestSize, largestQuickSize);
    options.repetitions = 7;
    options.seconds = 0.004;
    return true;
}

bool setInPlace(Options& options, Text)
{
    options.placement = Placement::InPlace;
    return true;
}

bool setInverse(Options& options, Text)
{
    options.direction = Direction::Inverse;
    return true;
}

bool setFamily(Options& options, Text value)
{
    return choose(options.families, value, familyNames);
}

bool setLengths(Options& options, Text value)
{
    return take(options.lengths, parseSizes(value, shortestLength, longestLength));
}

bool setOrders(Options& options, Text value)
{
    return take(options.orders, parseSizes(value, lowestOrder, highestOrder));
}

bool setSizes(Options& options, Text value)
{
    return take(options.sizes, parsePowers(value, smallestSize, largestSize));
}

bool setPrecision(Options& options, Text value)
{
    return choose(options.precisions, value, precisionNames);
}

bool setRounds(Options& options, Text value)
{
    return take(options.repetitions, parseCount(value, 1, 1000));
}

bool setLimits(Options& options, Text value)
{
    return take(options.limits, parseRatios(value));
}

bool setOutput(Options& options, Text value)
{
    options.output = value;
    return std::filesystem::is_directory(value);
}

// Which families an option concerns.
constexpr std::array<Family, 0> any = {};
constexpr std::array families = {Family::Complex, Family::Real, Family::Hartley, Family::Wht,
                                 Family::Dct4};
constexpr std::array lengths = {Family::Complex, Family::Real, Family::Hartley};
constexpr std::array inverse = {Family::Complex, Family::Real};
constexpr std::array orders = {Family::Wht};
constexpr std::array sizes = {Family::Dct4};

// The studies first, which leave no family; --quick before --sizes and --repetitions, which have
// the last word; --family before those that depend on it.
// clang-format off
constexpr std::array<Option, 15> table = {{
    {"--rates",       any,      addStudy<Study::Rates>,    ""},
    {"--dispatch",    any,      addStudy<Study::Dispatch>, ""},
    {"--mixed",       any,      addStudy<Study::Mixed>,    ""},
    {"--batches",     any,      addStudy<Study::Batches>,  ""},
    {"--family",      families, setFamily,                 "complex, real, hartley, wht or dct4"},
    {"--quick",       any,      setQuick,                  ""},
    {"--lengths",     lengths,  setLengths,                "lengths from 2 to 64, as in 8 or 2-16 or 3,5,60-64"},
    {"--orders",      orders,   setOrders,                 "orders from 1 to 13, as in 8 or 1-7 or 3,5,10-13"},
    {"--sizes",       sizes,    setSizes,                  "powers of two from 2 to 2^20, as in 8 or 2-64,256"},
    {"--precision",   any,      setPrecision,              "32fc, 32f, 64fc or 64f"},
    {"--in-place",    families, setInPlace,                ""},
    {"--inverse",     inverse,  setInverse,                ""},
    {"--repetitions", any,      setRounds,                 "a count from 1 to 1000"},
    {"--limit",       families, setLimits,                 "ratios, as in 0.9 or 0.9,1.0"},
    {"--output",      any,      setOutput,                 "an existing folder"},
}};
// clang-format on

[[noreturn]] void refuse(Text option, Text value, Text reason)
{
    throw std::invalid_argument(std::string(option) + " '" + std::string(value) +
                                "': " + std::string(reason));
}

struct Given {
    const Option* option;
    Text value;
};

std::vector<Given> read(std::span<char* const> arguments)
{
    std::vector<Given> all;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto* const option = std::ranges::find(table, Text(arguments[i]), &Option::name);
        if (option == table.end())
            refuse("option", arguments[i], "unknown; tools/bench --help lists the options");
        if (option->wanted.empty())
            all.push_back({option, {}});
        else if (++i < arguments.size())
            all.push_back({option, arguments[i]});
        else
            refuse(option->name, "", "a value is missing");
    }
    std::ranges::stable_sort(all, {}, &Given::option);
    return all;
}

} // namespace

Options parseOptions(std::span<char* const> arguments)
{
    Options options;
    options.lengths = allSizes(shortestLength, longestLength);
    options.orders = allSizes(lowestOrder, highestOrder);
    options.sizes = powersOfTwo(smallestSize, largestSize);

    for (const auto [option, value] : read(arguments)) {
        const auto concerned = std::ranges::find_first_of(options.families, option->families);
        if (!option->families.empty() && concerned == options.families.end())
            refuse(option->name, value, "concerns a family that is not measured");
        if (!option->set(options, value))
            refuse(option->name, value, option->wanted);
    }
    return options;
}

} // namespace rvn::bench
