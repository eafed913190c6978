// blocks.h - the two-dimensional Walsh-Hadamard transform of square blocks.
//
// For a block x of N x N values, H the Sylvester matrix of N rows:
//
//     X = (1/sqrt(N) H) x (1/sqrt(N) H)
//
// that is, every row is transformed, then every column. The scaled matrix is symmetric and
// orthogonal, hence its own inverse: the same call leads there and back, and the sum of the squares
// of a block stays what it is.
#ifndef HADAMARD_BLOCKS_H
#define HADAMARD_BLOCKS_H

#include <cstdint>
#include <span>

namespace hadamard
{

// How often the library's kernels were called, and the time spent in them alone.
struct KernelUse {
    std::int64_t transforms = 0;
    double seconds = 0;

    KernelUse& operator+=(const KernelUse& other)
    {
        transforms += other.transforms;
        seconds += other.seconds;
        return *this;
    }
};

// Transforms blocks of N x N values each in place, N = 2^order, one block after the other and its
// values row after row. Each block is left transposed, so that a second call puts it upright again.
KernelUse transformBlocks(std::span<float> blocks, int order);

} // namespace hadamard

#endif
