// sweep.cpp - see sweep.h. White noise ends after a few hundred errors or at a limit of bits.
#include "sweep.h"

#include "theory.h"

namespace ofdm
{
namespace
{

constexpr std::int64_t enoughErrors = 400;
constexpr std::int64_t mostBits = std::int64_t{1} << 20;
constexpr int channels = 1000;
constexpr std::size_t burstBytes = 240; // 10 to 20 symbols of plain OFDM

class Source
{
public:
    explicit Source(std::uint64_t seed) : random_(seed, dataStream) {}

    std::uint64_t nextSeed() { return random_.bits(); }

    void sendBurst(Link& link)
    {
        for (std::uint8_t& byte : sent_)
            byte = random_.byte();
        link.send(sent_, received_);
    }

private:
    Random random_;
    std::array<std::uint8_t, burstBytes> sent_ = {}, received_ = {};
};

} // namespace

std::vector<RatePoint> sweepWhite(Modulation modulation, int spread, std::uint64_t seed,
                                  double lowestRate)
{
    std::vector<RatePoint> rates;
    Source source(seed);
    for (int decibels = 0;; ++decibels) {
        const double ratio = fromDecibels(decibels);
        if (whiteErrorRate(modulation, ratio) < lowestRate)
            return rates;
        Link link({modulation, spread, ChannelKind::white, 1 / ratio, source.nextSeed()});
        while (link.tally().bitErrors < enoughErrors && link.tally().bits < mostBits)
            source.sendBurst(link);
        rates.push_back({static_cast<double>(decibels), link.tally().errorRate()});
    }
}

std::vector<RatePoint> sweepMultipath(Modulation modulation, int spread, std::uint64_t seed,
                                      double mostDecibels)
{
    constexpr int step = 2;
    std::vector<RatePoint> rates;
    for (int decibels = 0; decibels <= mostDecibels; decibels += step) {
        Source source(seed); // the same channels at every step
        std::int64_t bits = 0, errors = 0;
        for (int i = 0; i < channels; ++i) {
            Link link({modulation, spread, ChannelKind::multipath, 1 / fromDecibels(decibels),
                       source.nextSeed()});
            source.sendBurst(link);
            bits += link.tally().bits;
            errors += link.tally().bitErrors;
        }
        rates.push_back({static_cast<double>(decibels),
                         static_cast<double>(errors) / static_cast<double>(bits)});
    }
    return rates;
}

} // namespace ofdm
