// Lists are parted at commas, ranges at their dash; std::from_chars reads the numbers, which takes
// neither blanks nor signs that are not asked for.

#include "option_values.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <numeric>
#include <system_error>

namespace rvn::bench
{

namespace
{

constexpr double mostOfRatio = 1000;

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

// The sizes of a range; none if its ends are not sizes themselves.
using Between = std::optional<std::vector<int>> (*)(int first, int last);

std::optional<std::vector<int>> parseList(std::string_view text, int least, int most,
                                          Between between)
{
    std::vector<int> sizes;
    for (const std::string_view part : splitAtCommas(text)) {
        const std::size_t dash = part.find('-');
        const std::optional<int> first = parseCount(part.substr(0, dash), least, most);
        const std::optional<int> last =
            dash == part.npos ? first : parseCount(part.substr(dash + 1), least, most);
        if (!first || !last || *first > *last)
            return std::nullopt;
        const std::optional<std::vector<int>> range = between(*first, *last);
        if (!range)
            return std::nullopt;
        sizes.insert(sizes.end(), range->begin(), range->end());
    }
    std::ranges::sort(sizes);
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    return sizes;
}

bool isPowerOfTwo(int size)
{
    return std::has_single_bit(static_cast<unsigned>(size));
}

std::optional<std::vector<int>> sizesBetween(int first, int last)
{
    return allSizes(first, last);
}

std::optional<std::vector<int>> powersBetween(int first, int last)
{
    if (!isPowerOfTwo(first) || !isPowerOfTwo(last))
        return std::nullopt;
    return powersOfTwo(first, last);
}

} // namespace

std::optional<int> parseCount(std::string_view text, int least, int most)
{
    const std::optional<int> count = number<int>(text);
    return count && *count >= least && *count <= most ? count : std::nullopt;
}

std::optional<std::vector<int>> parseSizes(std::string_view text, int least, int most)
{
    return parseList(text, least, most, sizesBetween);
}

std::optional<std::vector<int>> parsePowers(std::string_view text, int least, int most)
{
    return parseList(text, least, most, powersBetween);
}

std::optional<std::vector<double>> parseRatios(std::string_view text)
{
    std::vector<double> ratios;
    for (const std::string_view part : splitAtCommas(text)) {
        const std::optional<double> ratio = number<double>(part);
        if (!ratio || !(*ratio >= 0) || !(*ratio < mostOfRatio))
            return std::nullopt;
        ratios.push_back(*ratio);
    }
    return ratios;
}

std::vector<int> allSizes(int least, int most)
{
    std::vector<int> sizes(static_cast<std::size_t>(most - least + 1));
    std::iota(sizes.begin(), sizes.end(), least);
    return sizes;
}

std::vector<int> powersOfTwo(int least, int most)
{
    std::vector<int> sizes;
    for (int size = least; size <= most; size *= 2)
        sizes.push_back(size);
    return sizes;
}

} // namespace rvn::bench
