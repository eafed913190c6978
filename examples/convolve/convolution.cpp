// convolution.cpp - blocks, spectra and products; the only file that calls the library.
//
// Spectra are in the Perm layout, 64 numbers of which the first two are real bins and the others
// complex ones:
//
//     slot     0      1      2     3     4     5   ...   62     63
//            R(0)   R(32)  R(1)  I(1)  R(2)  I(2)  ...  R(31)  I(31)
//
// So slots 0 and 1 multiply each alone, and slots 2k, 2k + 1 as one complex number. The forward
// transform is unscaled and the inverse one divides by 64 (RvnScaleInvByN): the product of two
// spectra then returns to the cyclic convolution itself.
#include "convolution.h"

#include "status.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <rvngenmx.h>

namespace convolve
{
namespace
{

using examples::check;

constexpr std::size_t N = transformLength;
constexpr std::size_t half = blockLength;

constexpr std::size_t batchBlocks = 256; // between two looks at the clock

void forward(const float* samples, float* spectrum)
{
    check(rvngDFTFwd_RToPerm_32f(samples, spectrum, transformLength, RvnScaleInvByN));
}

void inverse(const float* spectrum, float* samples)
{
    check(rvngDFTInv_PermToR_32f(spectrum, samples, transformLength, RvnScaleInvByN));
}

// Adds the product of two Perm spectra to a third.
void addProduct(const float* a, const float* b, float* sum)
{
    sum[0] += a[0] * b[0];
    sum[1] += a[1] * b[1];
    for (std::size_t i = 2; i < N; i += 2) {
        sum[i] += a[i] * b[i] - a[i + 1] * b[i + 1];
        sum[i + 1] += a[i] * b[i + 1] + a[i + 1] * b[i];
    }
}

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
                              blocks_.begin() + static_cast<std::ptrdiff_t>(i * N));
        }
        const auto start = std::chrono::steady_clock::now();
        transformBatch(count);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        use_.seconds += time.count();

        for (std::size_t i = 0; i < count; ++i)
            for (std::size_t n = 0; n < N; ++n)
                output[(first + i) * half + n] += blocks_[i * N + n];
        const auto used = spectra_.begin() + static_cast<std::ptrdiff_t>(count * N);
        std::copy(used, used + static_cast<std::ptrdiff_t>(before * N), spectra_.begin());
    }
    use_.samples += static_cast<std::int64_t>(signal.size());
    use_.transforms += static_cast<std::int64_t>(2 * blockCount);
    output.resize(signal.size() + taps_ - 1);
    return output;
}

} // namespace convolve
