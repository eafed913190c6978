// blocks.cpp - rows, transposition, rows; the only file that calls the library.
#include "blocks.h"

#include "status.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <rvngenmx.h>
#include <utility>
#include <vector>

namespace hadamard
{
namespace
{

using examples::check;

// Values that are worked on at a time, some blocks or one: they stay in the cache between the two
// passes, and the clock is read seldom.
constexpr std::size_t batchSize = std::size_t{1} << 14;

class RowTransform
{
public:
    explicit RowTransform(int order) : order_(order)
    {
        std::int32_t size = 0;
        check(rvngWHTGetBufferSize_32f(order, &size));
        buffer_.resize(static_cast<std::size_t>(size));
    }

    void operator()(std::span<float> rows)
    {
        const std::size_t length = std::size_t{1} << order_;
        const auto start = std::chrono::steady_clock::now();
        for (std::size_t i = 0; i < rows.size(); i += length)
            check(rvngWHT_32f(&rows[i], &rows[i], order_, RvnScaleBySqrtN, buffer_.data()));
        time_ += std::chrono::steady_clock::now() - start;
        transforms_ += static_cast<std::int64_t>(rows.size() / length);
    }

    KernelUse use() const { return {transforms_, std::chrono::duration<double>(time_).count()}; }

private:
    int order_;
    std::vector<std::byte> buffer_;
    std::chrono::steady_clock::duration time_{};
    std::int64_t transforms_ = 0;
};

void transpose(std::span<float> block, std::size_t length)
{
    for (std::size_t row = 1; row < length; ++row)
        for (std::size_t column = 0; column < row; ++column)
            std::swap(block[row * length + column], block[column * length + row]);
}

} // namespace

KernelUse transformBlocks(std::span<float> blocks, int order)
{
    const std::size_t length = std::size_t{1} << order;
    const std::size_t blockSize = length * length;
    const std::size_t step = std::max(batchSize, blockSize);
    RowTransform transformRows(order);
    for (std::size_t start = 0; start < blocks.size(); start += step) {
        const std::span<float> batch = blocks.subspan(start, std::min(step, blocks.size() - start));
        transformRows(batch);
        for (std::size_t block = 0; block < batch.size(); block += blockSize)
            transpose(batch.subspan(block, blockSize), length);
        transformRows(batch);
    }
    return transformRows.use();
}

} // namespace hadamard
