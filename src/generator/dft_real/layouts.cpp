#include "generator/dft_real/layouts.h"

namespace rvn::generator
{

namespace
{

// Where the pair (R(k), I(k)) starts, k from 1, and where R(length/2) lies for even length.
struct Places {
    int firstPair;
    int nyquist;
};

Places places(Layout layout, int length)
{
    switch (layout) {
    case Layout::CCS:
        return {2, length};
    case Layout::Pack:
        return {1, length - 1};
    case Layout::Perm:
        return length % 2 == 0 ? Places{2, 1} : Places{1, 0};
    }
    return {};
}

} // namespace

PackedLayout packedLayout(Layout layout, int length)
{
    const auto [firstPair, nyquist] = places(layout, length);
    PackedLayout packed{{0}, {}};
    for (int k = 1; 2 * k < length; ++k) {
        packed.valueSlot.push_back(firstPair + 2 * (k - 1));
        packed.valueSlot.push_back(firstPair + 2 * (k - 1) + 1);
    }
    if (length % 2 == 0)
        packed.valueSlot.push_back(nyquist);
    if (layout == Layout::CCS) {
        packed.zeroSlot.push_back(1);
        if (length % 2 == 0)
            packed.zeroSlot.push_back(length + 1);
    }
    return packed;
}

std::string nameOf(Layout layout)
{
    static const std::array<std::string, 3> names = {"CCS", "Pack", "Perm"};
    return names[static_cast<std::size_t>(layout)];
}

} // namespace rvn::generator
