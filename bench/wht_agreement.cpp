// rvngenmx.h fixes the order of the additions and with it every rounding: right results are equal
// results. The loops share no code with the kernels.

#include "wht_agreement.h"

#include "input.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>

namespace
{

constexpr int trials = 8;

template <typename Element>
std::vector<Element> result(const Contender& contender, WhtBuffers<Element>& buffers,
                            std::span<const Element> input, Placement placement)
{
    buffers.target.fill(std::numeric_limits<Element>::quiet_NaN());
    std::ranges::copy(input, buffers.source.begin());
    contender.transform();
    const Element* const found = buffers.destination(placement);
    return {found, found + input.size()};
}

} // namespace

template <typename Element>
void requireAgreement(std::span<const Contender> contenders, WhtBuffers<Element>& buffers,
                      int order, Placement placement)
{
    Random random(seed);
    std::vector<Element> input(std::size_t(1) << order);
    for (int trial = 0; trial < trials; ++trial) {
        fillAtRandom<Element>(input, random);
        const std::vector<Element> first =
            result<Element>(contenders[0], buffers, input, placement);
        for (const Contender& other : contenders.subspan(1)) {
            const std::vector<Element> found = result<Element>(other, buffers, input, placement);
            if (std::memcmp(found.data(), first.data(), first.size() * sizeof(Element)) != 0)
                throw std::runtime_error(other.name + " and " + contenders[0].name +
                                         " differ at order " + std::to_string(order));
        }
    }
}

template void requireAgreement(std::span<const Contender>, WhtBuffers<float>&, int, Placement);
template void requireAgreement(std::span<const Contender>, WhtBuffers<double>&, int, Placement);
