// The values of options, read from text: each whole text or nothing.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace rvn::bench
{

// Within the bounds, both included.
std::optional<int> parseCount(std::string_view text, int least, int most);

// "2-8,16": sizes and ranges of them, to an ascending list without repeats.
std::optional<std::vector<int>> parseSizes(std::string_view text, int least, int most);

// "0.9,1": from 0 to below 1000.
std::optional<std::vector<double>> parseRatios(std::string_view text);

// All sizes between the bounds.
std::vector<int> allSizes(int least, int most);

} // namespace rvn::bench
