// convolution.h - a recording filtered by overlap-add with real transforms of 64 samples.
//
// 32 samples, followed by 32 zeros, and a response of up to 33 taps: their convolution has 64
// samples, so that the cyclic one, which a product of spectra makes, is the same. A longer response
// is cut into partitions of 32 taps, up to 33 in the last one. As a partition is as long as a
// block, what partition p makes of block b belongs to the place of block b + p:
//
//     Y(b) = sum over p of H(p) X(b - p),   out[32 b + n] += inverse(Y(b))[n],  n = 0 to 63,
//
// one forward and one inverse transform a block, however long the response (overlap-add: Stockham
// 1966; spectra kept for the partitions: Kulp 1988).
#ifndef CONVOLVE_CONVOLUTION_H
#define CONVOLVE_CONVOLUTION_H

#include <cstddef>
#include <span>
#include <vector>

constexpr std::size_t transformLength = 64;
constexpr std::size_t blockLength = transformLength / 2;

// Between 64 samples and their spectrum, and the product of two spectra, added to a third.
void forward(const float* samples, float* spectrum);
void inverse(const float* spectrum, float* samples);
void addProduct(const float* a, const float* b, float* sum);

// How many partitions a response of so many taps needs.
std::size_t partitionsOf(std::size_t taps);

// The calls made so far.
struct Use {
    std::size_t samples = 0;    // that were filtered
    std::size_t transforms = 0; // of the recording, there and back
    double seconds = 0;         // in transforms and products only
};

class Convolver
{
public:
    // The response has one tap or more.
    explicit Convolver(std::span<const float> response);

    // The full convolution: signal and response, taps - 1 samples longer than the signal.
    std::vector<float> convolve(std::span<const float> signal);

    const Use& use() const { return use_; }

private:
    void transformBatch(std::size_t count);

    std::size_t taps_, partitions_;
    std::vector<float> response_; // spectra of the partitions
    std::vector<float> blocks_;   // of a batch: samples, then what they make
    std::vector<float> spectra_;  // partitions - 1 of the blocks before, then the batch's
    Use use_;
};

#endif
