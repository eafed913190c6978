// convolution.cpp - blocks, spectra and overlapping results.
#include "convolution.h"

#include "program.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::size_t N = transformLength;
constexpr std::size_t half = blockLength;

constexpr std::size_t batchBlocks = 256; // between two looks at the clock

} // namespace

std::size_t partitionsOf(std::size_t taps)
{
    return std::max<std::size_t>(1, (taps - 1 + half - 1) / half);
}

Convolver::Convolver(std::span<const float> response)
    : taps_(response.size()), partitions_(partitionsOf(taps_)), response_(partitions_ * N)
{
    for (std::size_t p = 0; p < partitions_; ++p) {
        const bool last = p + 1 == partitions_;
        const std::span part = response.subspan(p * half, last ? taps_ - p * half : half);
        std::array<float, N> padded = {};
        std::ranges::copy(part, padded.begin());
        forward(padded.data(), &response_[p * N]);
    }
}

// Replaces the batch's blocks by what they and the blocks before them make.
void Convolver::transformBatch(std::size_t count)
{
    const std::size_t before = partitions_ - 1;
    for (std::size_t i = 0; i < count; ++i)
        forward(&blocks_[i * N], &spectra_[(before + i) * N]);
    for (std::size_t i = 0; i < count; ++i) {
        std::array<float, N> product = {};
        for (std::size_t p = 0; p < partitions_; ++p)
            addProduct(&response_[p * N], &spectra_[(before + i - p) * N], product.data());
        inverse(product.data(), &blocks_[i * N]);
    }
}

std::vector<float> Convolver::convolve(std::span<const float> signal)
{
    // The last block of the signal is heard until it has passed the last partition.
    const std::size_t before = partitions_ - 1;
    const std::size_t blockCount = (signal.size() + half - 1) / half + before;
    std::vector<float> output((blockCount + 1) * half);
    spectra_.assign((before + batchBlocks) * N, 0.0f);
    for (std::size_t first = 0; first < blockCount; first += batchBlocks) {
        const std::size_t count = std::min(batchBlocks, blockCount - first);
        blocks_.assign(count * N, 0.0f);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t begin = std::min((first + i) * half, signal.size());
            std::ranges::copy(signal.subspan(begin, std::min(half, signal.size() - begin)),
                              blocks_.begin() + (i * N));
        }
        timed(use_.seconds, [&] { transformBatch(count); });
        for (std::size_t i = 0; i < count; ++i)
            for (std::size_t n = 0; n < N; ++n)
                output[(first + i) * half + n] += blocks_[i * N + n];
        const auto used = spectra_.begin() + (count * N);
        std::copy(used, used + (before * N), spectra_.begin());
    }
    use_.samples += signal.size();
    use_.transforms += 2 * blockCount;
    output.resize(signal.size() + taps_ - 1);
    return output;
}
