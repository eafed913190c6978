#include "extras.h"

#include "means.h"

#include <cmath>

namespace
{

// One value a judged contender, of its timing.
template <typename Value>
std::vector<double> ofJudged(const std::vector<Timing>& timings, std::size_t firstPeer, Value value)
{
    std::vector<double> values = {value(timings.front())};
    for (std::size_t peer = firstPeer; peer < timings.size(); ++peer)
        values.push_back(value(timings[peer]));
    return values;
}

} // namespace

std::vector<std::string> limitMethod()
{
    return {"limit     max(A/2, M/2, (A + M + 2 W + 2 R)/3) cycles for our A additions, M "
            "multiplications (those",
            "          by S included), W widenings and R roundings, at the clock of the "
            "repetition; from memory:",
            "          with W once; four pipes: max((A + W + R)/2, M/2)"};
}

Names judged(const Names& contenders, std::size_t firstPeer)
{
    Names names = {contenders.front()};
    names.insert(names.end(), contenders.begin() + static_cast<std::ptrdiff_t>(firstPeer),
                 contenders.end());
    return names;
}

Extra errorExtra(const Names& names)
{
    return {"relative rms error",
            "relative rms error over all of them",
            "error",
            names,
            2, // ours and that of FFTW scalar
            "%.2e",
            "rms",
            rootMeanSquare};
}

Extra growthExtra(const Names& names)
{
    return {"growth", "growth: nanoseconds over N log2 N", "growth", names, 1, "%.3f"};
}

std::vector<double> growth(const std::vector<Timing>& timings, std::size_t firstPeer, int size)
{
    return ofJudged(timings, firstPeer, [size](const Timing& timing) {
        return timing.nanoseconds / (size * std::log2(size));
    });
}

std::vector<Extra> limitExtras(const Names& names)
{
    return {{"cycles a call", "cycles a call", "cycles", {names.front(), "limit"}, 2, "%.1f"},
            {"over limit", "time over the limit of our operations", "limit", names, 1, "%.2f"}};
}

std::vector<std::vector<double>> overLimit(const TimingsAndCycles& found, std::size_t firstPeer,
                                           const Work& work)
{
    const double limit = limitInCycles(work);
    return {{found.cycles, limit}, ofJudged(found.timings, firstPeer, [&](const Timing& timing) {
                return timing.ratio * found.cycles / limit;
            })};
}

Extra coresExtra(bool converts)
{
    const Names names = converts ? Names{"from memory", "four pipes"} : Names{"four pipes"};
    return {"other limits", "our time over other limits", "cores", names, names.size(), "%.2f"};
}

std::vector<double> overCores(const TimingsAndCycles& found, const Work& work, bool converts)
{
    std::vector<double> values;
    if (converts)
        values.push_back(found.cycles / limitInCycles(work, Core::ThreePortsMemory));
    values.push_back(found.cycles / limitInCycles(work, Core::FourPipes));
    return values;
}
