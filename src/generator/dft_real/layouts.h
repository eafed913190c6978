// The packed layouts of a real signal's spectrum, as data: forward kernels store by it, inverse
// kernels load by it.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace rvn::generator
{

enum class Layout { CCS, Pack, Perm };

inline constexpr std::array<Layout, 3> everyLayout = {Layout::CCS, Layout::Pack, Layout::Perm};

struct PackedLayout {
    // The slots of R(0), R(1), I(1), R(2), I(2), ... and, for even length, R(length/2).
    std::vector<int> valueSlot;
    // The slots that hold +0.0: stored without arithmetic, never read.
    std::vector<int> zeroSlot;
};

PackedLayout packedLayout(Layout layout, int length);

std::string nameOf(Layout layout);

} // namespace rvn::generator
