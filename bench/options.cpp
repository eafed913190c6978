// The command line is read by CLI11, which knows what the options are; what --help prints is
// usage.inc, which tools/bench prints without building anything.

#include "options.h"

#include "studies.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdio>

namespace
{

using Texts = std::vector<std::string>;

template <typename Number>
Number numberIn(const std::string& text, Number least, Number most, const std::string& wanted)
{
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(value >= least) ||
        !(value <= most))
        throw CLI::ValidationError("'" + text + "': give " + wanted);
    return value;
}

// Sizes and ranges of them, to an ascending list without repeats.
std::vector<int> sizesOf(const Texts& parts, const std::vector<int>& all, const std::string& wanted)
{
    std::vector<int> sizes;
    for (const std::string& part : parts) {
        const std::size_t dash = part.find('-');
        const std::string last = dash == part.npos ? part : part.substr(dash + 1);
        const int begin = numberIn(part.substr(0, dash), all.front(), all.back(), wanted);
        const int end = numberIn(last, begin, all.back(), wanted);
        for (const int bound : {begin, end})
            if (std::ranges::find(all, bound) == all.end())
                throw CLI::ValidationError("'" + part + "': give " + wanted);
        std::ranges::copy_if(all, std::back_inserter(sizes),
                             [&](int size) { return size >= begin && size <= end; });
    }
    std::ranges::sort(sizes);
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    return sizes;
}

} // namespace

std::vector<int> allSizes(int least, int most)
{
    std::vector<int> sizes;
    for (int size = least; size <= most; ++size)
        sizes.push_back(size);
    return sizes;
}

std::vector<int> powersOfTwo(int least, int most)
{
    std::vector<int> sizes = allSizes(least, most);
    std::erase_if(sizes,
                  [](int size) { return !std::has_single_bit(static_cast<unsigned>(size)); });
    return sizes;
}

Options parseOptions(int count, char** arguments)
{
    Options options;
    options.lengths = allSizes(shortestLength, longestLength);
    options.orders = allSizes(lowestOrder, highestOrder);
    options.sizes = powersOfTwo(smallestSize, largestSize);

    CLI::App app;
    app.set_help_flag();
    Texts lengths, orders, sizes, limits;
    std::string family, precision, repetitions;
    bool help = false, inPlace = false, inverse = false;
    const Texts families = {"complex", "real", "hartley", "wht", "dct4"}; // as in Family
    // Each with the families that it concerns; none: the studies too.
    using enum Family;
    std::vector<std::pair<CLI::Option*, std::vector<Family>>> all = {
        {app.add_option("--family", family)->check(CLI::IsMember(families)),
         {Complex, Real, Hartley, Wht, Dct4}},
        {app.add_option("--lengths", lengths)->delimiter(','), {Complex, Real, Hartley}},
        {app.add_option("--orders", orders)->delimiter(','), {Wht}},
        {app.add_option("--sizes", sizes)->delimiter(','), {Dct4}},
        {app.add_flag("--in-place", inPlace), {Complex, Real, Hartley, Wht, Dct4}},
        {app.add_flag("--inverse", inverse), {Complex, Real}},
        {app.add_option("--limit", limits)->delimiter(','), {Complex, Real, Hartley, Wht, Dct4}}};
    app.add_option("--precision", precision)->check(CLI::IsMember({"32fc", "32f", "64fc", "64f"}));
    app.add_option("--repetitions", repetitions);
    app.add_flag("--quick", options.quick);
    app.add_option("--output", options.output)->check(CLI::ExistingDirectory);
    app.add_flag("--help,-h", help);
    for (const auto& [name, study] : {std::pair<const char*, Study>("--rates", reportRates),
                                      {"--dispatch", reportDispatch},
                                      {"--mixed", reportMixedLengths},
                                      {"--batches", reportBatches}})
        app.add_flag_callback(name, [&, study = study] { options.studies.push_back(study); });

    try {
        app.parse(count, arguments);
        if (help) {
            std::fputs(
#include "usage.inc"
                , stdout);
            std::exit(0);
        }
        if (!options.studies.empty())
            options.families.clear();
        if (!family.empty() && options.studies.empty())
            options.families = {
                static_cast<Family>(std::ranges::find(families, family) - families.begin())};
        for (const auto& [option, concerned] : all)
            if (option->count() > 0 &&
                std::ranges::find_first_of(options.families, concerned) == options.families.end())
                throw CLI::ValidationError(option->get_name(),
                                           "concerns a family that is not measured");
        if (options.quick) {
            options.sizes = powersOfTwo(smallestSize, largestQuickSize);
            options.repetitions = 7;
            options.seconds = 0.004;
        }
        if (!lengths.empty())
            options.lengths =
                sizesOf(lengths, options.lengths, "lengths from 2 to 64, as in 8,60-64");
        if (!orders.empty())
            options.orders = sizesOf(orders, options.orders, "orders from 1 to 13, as in 8,10-13");
        if (!sizes.empty())
            options.sizes = sizesOf(sizes, powersOfTwo(smallestSize, largestSize),
                                    "powers of two from 2 to 2^20, as in 8,64-256");
        if (!limits.empty())
            options.limits.clear();
        for (const std::string& limit : limits)
            options.limits.push_back(numberIn(limit, 0.0, 1000.0, "ratios, as in 0.9,1"));
        if (!repetitions.empty())
            options.repetitions = numberIn(repetitions, 1, 1000, "a count from 1 to 1000");
    } catch (const CLI::ParseError& error) {
        throw std::invalid_argument(error.what() + std::string(" (see --help)"));
    }
    if (!precision.empty())
        options.precisions = {precision.starts_with("32") ? Precision::Single : Precision::Double};
    options.placement = inPlace ? Placement::InPlace : Placement::OutOfPlace;
    options.direction = inverse ? Direction::Inverse : Direction::Forward;
    return options;
}
