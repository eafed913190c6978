// Lists are parted at commas, ranges at their dash; std::from_chars reads the numbers, which takes
// neither blanks nor signs that are not asked for.

#include "option_values.h"

#include <algorithm>
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

} // namespace

std::optional<int> parseCount(std::string_view text, int least, int most)
{
    const std::optional<int> count = number<int>(text);
    return count && *count >= least && *count <= most ? count : std::nullopt;
}

std::optional<std::vector<int>> parseSizes(std::string_view text, int least, int most)
{
    std::vector<int> sizes;
    for (const std::string_view part : splitAtCommas(text)) {
        const std::size_t dash = part.find('-');
        const std::optional<int> first = parseCount(part.substr(0, dash), least, most);
        const std::optional<int> last =
            dash == part.npos ? first : parseCount(part.substr(dash + 1), least, most);
        if (!first || !last || *first > *last)
            return std::nullopt;
        const std::vector<int> range = allSizes(*first, *last);
        sizes.insert(sizes.end(), range.begin(), range.end());
    }
    std::ranges::sort(sizes);
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    return sizes;
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

} // namespace rvn::bench
