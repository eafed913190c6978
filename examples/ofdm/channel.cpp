// channel.cpp - see channel.h.
#include "channel.h"

#include "subcarriers.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ofdm
{
namespace
{

constexpr double turn = 2 * std::numbers::pi;

static_assert(channelTaps <= prefixLength + 1);

} // namespace

Channel::Channel(ChannelKind kind, double noise, std::uint64_t seed)
    : noise_(noise), random_(seed, channelStream)
{
    if (kind == ChannelKind::white)
        return;
    double total = 0;
    for (std::size_t i = 0; i < channelTaps; ++i)
        total += std::exp(-static_cast<double>(i) / delaySpread);
    for (std::size_t i = 0; i < channelTaps; ++i)
        taps_.push_back(random_.gaussian(std::exp(-static_cast<double>(i) / delaySpread) / total));
}

double Channel::gain() const
{
    if (taps_.empty())
        return 1;
    double sum = 0;
    for (const Complex tap : taps_)
        sum += power(tap);
    return sum;
}

void Channel::pass(std::span<Complex> samples)
{
    if (!taps_.empty()) {
        addEchoes(samples);
        for (std::size_t i = 0; i < samples.size(); i += blockLength)
            rotate(samples.subspan(i, std::min(blockLength, samples.size() - i)));
    }
    if (noise_ > 0)
        for (Complex& sample : samples)
            sample = plus(sample, random_.gaussian(noise_));
}

void Channel::addEchoes(std::span<Complex> samples)
{
    for (Complex& sample : samples) {
        std::copy_backward(past_.begin(), past_.end() - 1, past_.end());
        past_[0] = sample;
        sample = {};
        for (std::size_t i = 0; i < channelTaps; ++i)
            sample = plus(sample, times(taps_[i], past_[i]));
    }
}

// A few samples from an exact start, so that rounding does not add up.
void Channel::rotate(std::span<Complex> samples)
{
    constexpr double step = turn * carrierOffset / symbolLength;
    const Complex turnOfSample = unit(step);
    Complex factor = unit(phase_);
    for (Complex& sample : samples) {
        sample = times(sample, factor);
        factor = times(factor, turnOfSample);
    }
    phase_ = std::remainder(phase_ + step * static_cast<double>(samples.size()), turn);
}

} // namespace ofdm
