// receiver.cpp - see receiver.h.
#include "receiver.h"

#include "status.h"

#include <algorithm>
#include <limits>
#include <numbers>

namespace ofdm
{
namespace
{

using examples::check;

// Critically damped: the second is a quarter of the first one's square.
constexpr double phaseGain = 0.2;
constexpr double driftGain = 0.01;

// The used subcarriers of a block.
void analyse(const Subcarriers& subcarriers, std::span<const Complex> samples,
             std::span<Complex> values)
{
    Spectrum spectrum;
    check(rvngDFTFwd_CToC_64_32fc(&samples[prefixLength], spectrum.data(), RvnScaleBySqrtN));
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = spectrum[subcarriers.bins[i]];
}

} // namespace

Receiver::Receiver(Subcarriers subcarriers)
    : subcarriers_(std::move(subcarriers)), equaliser_(subcarriers_.used()),
      weights_(subcarriers_.used(), 1)
{
}

void Receiver::assumeNoEchoes(double noise)
{
    noise_ = noise;
    setEqualiser(std::vector<Complex>(subcarriers_.used(), Complex{1, 0}));
}

void Receiver::learn(std::span<const Complex> training)
{
    const std::size_t used = subcarriers_.used();
    std::vector<Complex> first(used), second(used);
    analyse(subcarriers_, training.first(blockLength), first);
    analyse(subcarriers_, training.subspan(blockLength), second);

    Complex sum = {};
    for (std::size_t i = 0; i < used; ++i)
        sum = plus(sum, times(second[i], conjugate(first[i])));
    drift_ = angle(sum);
    phase_ = drift_;
    tracking_ = true;

    const std::vector<Complex> sent = trainingPoints(subcarriers_);
    std::vector<Complex> channel(used);
    double squares = 0;
    for (std::size_t i = 0; i < used; ++i) {
        const Complex turned = times(second[i], unit(-drift_));
        squares += power(minus(turned, first[i]));
        channel[i] = times(times(plus(turned, first[i]), 0.5f), conjugate(sent[i]));
    }
    noise_ = squares / static_cast<double>(2 * used);
    setEqualiser(channel);
}

void Receiver::setEqualiser(std::span<const Complex> channel)
{
    const bool spread = subcarriers_.spread != 0;
    double kept = 0;
    for (std::size_t i = 0; i < channel.size(); ++i) {
        const float gain = std::max(power(channel[i]), std::numeric_limits<float>::min());
        const float sum = gain + (spread ? static_cast<float>(noise_) : 0);
        equaliser_[i] = times(conjugate(channel[i]), 1 / sum);
        kept += gain / sum;
        if (!spread)
            weights_[i] = gain;
    }
    const auto size = static_cast<float>(static_cast<double>(channel.size()) / kept);
    for (Complex& factor : equaliser_)
        factor = times(factor, size);
}

void Receiver::demodulate(std::span<const Complex> samples, std::span<Complex> points)
{
    std::array<Complex, mostUsed> places;
    const std::span<Complex> used(places.data(), subcarriers_.used());
    analyse(subcarriers_, samples, used);
    for (std::size_t i = 0; i < used.size(); ++i)
        used[i] = times(used[i], equaliser_[i]);
    if (subcarriers_.spread != 0)
        check(rvngDFTInv_CToC_32fc(used.data(), used.data(), subcarriers_.spread, RvnScaleBySqrtN));
    if (tracking_)
        track(used);
    const Complex back = unit(-phase_);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = times(used[subcarriers_.data[i]], back);
}

// Pilots count as their subcarriers are strong.
void Receiver::track(std::span<const Complex> points)
{
    Complex sum = {};
    for (const std::size_t place : subcarriers_.pilots)
        sum = plus(sum, times(times(points[place], conjugate(pilots_.next())), weights_[place]));
    phase_ += drift_;
    const double error = angle(times(sum, unit(-phase_)));
    phase_ = std::remainder(phase_ + phaseGain * error, 2 * std::numbers::pi);
    drift_ += driftGain * error;
}

} // namespace ofdm
