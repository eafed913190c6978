#include "limit.h"

#include <algorithm>

Work operator+(const Work& left, const Work& right)
{
    return {.additions = left.additions + right.additions,
            .multiplications = left.multiplications + right.multiplications,
            .widenings = left.widenings + right.widenings,
            .roundings = left.roundings + right.roundings};
}

Work operator*(int times, const Work& work)
{
    return {.additions = times * work.additions,
            .multiplications = times * work.multiplications,
            .widenings = times * work.widenings,
            .roundings = times * work.roundings};
}

double limitInCycles(const Work& work, Core core)
{
    const double arithmetic = work.additions + work.multiplications;
    const double adders = work.additions / 2.0;
    const double multipliers = work.multiplications / 2.0;
    switch (core) {
    case Core::ThreePorts:
        return std::max(
            {adders, multipliers, (arithmetic + 2 * work.widenings + 2 * work.roundings) / 3});
    case Core::ThreePortsMemory:
        return std::max(
            {adders, multipliers, (arithmetic + work.widenings + 2 * work.roundings) / 3});
    case Core::FourPipes:
        return std::max(adders + (work.widenings + work.roundings) / 2.0, multipliers);
    }
    return 0;
}
