// modem.h - the transmitter, labels to samples, and the receiver, samples to points.
//
// The receiver takes the channel as the mean of what two training symbols say of each subcarrier.
// Their difference tells the power of the noise, their common rotation where the carrier drifts.
// From then on a phase-locked loop of second order follows the common phase of the pilots. The
// start of the symbols is known.
//
// The equaliser of plain OFDM is 1/H on each subcarrier. Spread points share all subcarriers, and a
// weak one would spoil them all; there it is conj(H) / (|H|^2 + N0), of the least mean squared
// error, over the mean of |H|^2 / (|H|^2 + N0), which leaves the points at their size.
#ifndef OFDM_MODEM_H
#define OFDM_MODEM_H

#include "channel.h"
#include "constellation.h"

constexpr std::size_t trainingSymbols = 2;

using Block = std::span<Complex, blockLength>;

// The pilots of one symbol after the other, points of QPSK that both sides know.
class Pilots
{
public:
    Complex next();

private:
    Random random_{0, pilotStream};
};

class Transmitter
{
public:
    Transmitter(Subcarriers subcarriers, const Constellation& constellation)
        : subcarriers_(std::move(subcarriers)), constellation_(constellation)
    {
    }

    // The samples of a training symbol with its prefix.
    void train(Block samples) const;

    // The subcarriers of the next symbol. There is a label for each data place.
    Spectrum spectrum(std::span<const std::uint8_t> labels);

private:
    Subcarriers subcarriers_;
    Constellation constellation_;
    Pilots pilots_;
};

class Receiver
{
public:
    explicit Receiver(Subcarriers subcarriers);

    // For a channel of gain 1 without drift: nothing is estimated.
    void assumeNoEchoes(double noise);

    // From the blocks of the training symbols.
    void learn(std::span<const Complex> training);

    // The points at the data places of the next symbol, from its block.
    void demodulate(Block samples, std::span<Complex> points);

    double noise() const { return noise_; } // power, per subcarrier

private:
    void setEqualiser(std::span<const Complex> channel);
    void track(std::span<const Complex> points);

    Subcarriers subcarriers_;
    Pilots pilots_;
    double noise_ = 0;
    std::vector<Complex> equaliser_;
    std::vector<float> weights_; // of pilots, at all places
    bool tracking_ = false;
    double phase_ = 0, drift_ = 0; // radians, radians a symbol
};

#endif
