// modem.cpp - see modem.h.
#include "modem.h"

#include <algorithm>
#include <limits>
#include <numbers>

namespace
{

// Critically damped: the second is a quarter of the first one's square.
constexpr double phaseGain = 0.2;
constexpr double driftGain = 0.01;

double angle(Complex value)
{
    return std::arg(std::complex<double>(value));
}

} // namespace

Complex Pilots::next()
{
    constexpr float part = 0.70710678f;
    const std::uint64_t bits = random_.bits();
    return {bits >> 63 != 0 ? part : -part, (bits >> 62 & 1) != 0 ? part : -part};
}

// Training points are what the subcarriers carry, and not spread.
void Transmitter::train(Block samples) const
{
    Spectrum spectrum = {};
    const std::vector<Complex> points = trainingPoints(subcarriers_);
    for (std::size_t i = 0; i < points.size(); ++i)
        spectrum[subcarriers_.bins[i]] = points[i];
    toSamples(spectrum, samples);
}

Spectrum Transmitter::spectrum(std::span<const std::uint8_t> labels)
{
    Spectrum places;
    for (std::size_t i = 0; i < subcarriers_.data.size(); ++i)
        places[subcarriers_.data[i]] = constellation_.point(labels[i]);
    for (const std::size_t place : subcarriers_.pilots)
        places[place] = pilots_.next();
    return spectrumOf(std::span(places).first(subcarriers_.used()), subcarriers_);
}

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
    fromSamples(training.first<blockLength>(), subcarriers_, first);
    fromSamples(training.last<blockLength>(), subcarriers_, second);

    Complex sum = {};
    for (std::size_t i = 0; i < used; ++i)
        sum += second[i] * std::conj(first[i]);
    drift_ = angle(sum);
    phase_ = drift_;
    tracking_ = true;

    const std::vector<Complex> sent = trainingPoints(subcarriers_);
    std::vector<Complex> channel(used);
    double squares = 0;
    for (std::size_t i = 0; i < used; ++i) {
        const Complex turned = second[i] * unit(-drift_);
        squares += std::norm(turned - first[i]);
        channel[i] = (turned + first[i]) * 0.5f * std::conj(sent[i]);
    }
    noise_ = squares / static_cast<double>(2 * used);
    setEqualiser(channel);
}

void Receiver::setEqualiser(std::span<const Complex> channel)
{
    const bool spread = subcarriers_.spread != 0;
    double kept = 0;
    for (std::size_t i = 0; i < channel.size(); ++i) {
        const float gain = std::max(std::norm(channel[i]), std::numeric_limits<float>::min());
        const float sum = gain + (spread ? static_cast<float>(noise_) : 0);
        equaliser_[i] = std::conj(channel[i]) * (1 / sum);
        kept += gain / sum;
        if (!spread)
            weights_[i] = gain;
    }
    const auto size = static_cast<float>(static_cast<double>(channel.size()) / kept);
    for (Complex& factor : equaliser_)
        factor *= size;
}

void Receiver::demodulate(Block samples, std::span<Complex> points)
{
    Spectrum places;
    const std::span<Complex> used(places.data(), subcarriers_.used());
    fromSamples(samples, subcarriers_, used);
    for (std::size_t i = 0; i < used.size(); ++i)
        used[i] *= equaliser_[i];
    gather(used, subcarriers_);
    if (tracking_)
        track(used);
    const Complex back = unit(-phase_);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = used[subcarriers_.data[i]] * back;
}

// Pilots count as their subcarriers are strong.
void Receiver::track(std::span<const Complex> points)
{
    Complex sum = {};
    for (const std::size_t place : subcarriers_.pilots)
        sum += points[place] * std::conj(pilots_.next()) * weights_[place];
    phase_ += drift_;
    const double error = angle(sum * unit(-phase_));
    phase_ = std::remainder(phase_ + phaseGain * error, 2 * std::numbers::pi);
    drift_ += driftGain * error;
}
