// channel.cpp - see channel.h.
#include "channel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

constexpr double turn = 2 * std::numbers::pi;

std::uint64_t mixed(std::uint64_t z)
{
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

static_assert(channelTaps <= prefixLength + 1);

} // namespace

Random::Random(std::uint64_t seed, std::uint64_t stream) : state_(mixed(mixed(seed) + stream)) {}

std::uint64_t Random::bits()
{
    return mixed(state_ += 0x9e3779b97f4a7c15u);
}

double Random::uniform()
{
    return static_cast<double>((bits() >> 11) + 1) * 0x1p-53;
}

// Box and Muller 1958. The last bit of a logarithm may depend on the machine; rounding to binary32
// takes it away.
Complex Random::gaussian(double power)
{
    const double radius = std::sqrt(-power * std::log(uniform()));
    const double phase = turn * uniform();
    return {static_cast<float>(radius * std::cos(phase)),
            static_cast<float>(radius * std::sin(phase))};
}

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
        sum += std::norm(tap);
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
            sample += random_.gaussian(noise_);
}

void Channel::addEchoes(std::span<Complex> samples)
{
    for (Complex& sample : samples) {
        std::copy_backward(past_.begin(), past_.end() - 1, past_.end());
        past_[0] = sample;
        sample = {};
        for (std::size_t i = 0; i < channelTaps; ++i)
            sample += taps_[i] * past_[i];
    }
}

// A few samples from an exact start, so that rounding does not add up.
void Channel::rotate(std::span<Complex> samples)
{
    constexpr double step = turn * carrierOffset / symbolLength;
    const Complex turnOfSample = unit(step);
    Complex factor = unit(phase_);
    for (Complex& sample : samples) {
        sample *= factor;
        factor *= turnOfSample;
    }
    phase_ = std::remainder(phase_ + step * static_cast<double>(samples.size()), turn);
}
