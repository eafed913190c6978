// The order in which a row of twiddles of the top split holds its (cosine, sine) pairs: that in
// which the output row of the radix forms its inputs. The generator and the table's filler share
// it.
#pragma once

namespace rvn::dct4
{

// The index j of the pair at a place of the row, for r = 1, 2, 4, 8, 16 or 32: each j is followed
// by its mirror image r - 1 - j. Up to 16 the j ascend; of the row of 32, which is split as 4 by 4
// by 4, the bits of the place from the highest on are j's lowest, then the two bits above it that
// its rows count, then its highest.
constexpr int pairIndex(int r, int place)
{
    const int pair = place / 2;
    const int j = r < 32 ? pair : pair / 8 + 4 * (pair / 2 % 4) + 16 * (pair % 2);
    return place % 2 == 0 ? j : r - 1 - j;
}

static_assert(pairIndex(32, 2) == 16 && pairIndex(32, 5) == 27 && pairIndex(32, 31) == 2);

} // namespace rvn::dct4
