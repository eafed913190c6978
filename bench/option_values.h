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

// The same of powers of two: a range stands for those in it, its ends included.
std::optional<std::vector<int>> parsePowers(std::string_view text, int least, int most);

// "0.9,1": from 0 to below 1000.
std::optional<std::vector<double>> parseRatios(std::string_view text);

// All sizes between the bounds.
std::vector<int> allSizes(int least, int most);

// All powers of two from the first bound, which is one, to the second.
std::vector<int> powersOfTwo(int least, int most);

} // namespace rvn::bench
