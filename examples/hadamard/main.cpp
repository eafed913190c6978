// main.cpp - the hadamard program: a picture rebuilt from the largest coefficients of its blocks.
//
//     hadamard [-b ORDER] [-k SHARE] [-o REBUILT.png] PICTURE.png
//
// For a block x of N x N values, H the Sylvester matrix of N rows:
//
//     X = (1/sqrt(N) H) x (1/sqrt(N) H)
//
// that is, every row is transformed, then every column. The scaled matrix is symmetric and
// orthogonal, hence its own inverse: the same call leads there and back, and the sum of the squares
// of a block stays what it is.
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "console.h"
#include "part_file.h"
#include "planes.h"
#include "program.h"

#include <algorithm>
#include <utility>

namespace
{

// Values that are worked on at a time, some blocks or one: they stay in the cache between the two
// passes, and the clock is read seldom.
constexpr std::size_t batchSize = std::size_t{1} << 14;

void transpose(float* block, std::size_t N)
{
    for (std::size_t row = 1; row < N; ++row)
        for (std::size_t column = 0; column < row; ++column)
            std::swap(block[row * N + column], block[column * N + row]);
}

// Transforms blocks of N x N values in place, N = 2^order, each stored row after row. Each is left
// transposed, so that a second call puts it upright again.
void transformBlocks(std::span<float> blocks, int order, KernelUse& use)
{
    const std::size_t N = std::size_t{1} << order, step = std::max(batchSize, N * N);
    std::int32_t bytes = 0;
    check(rvngWHTGetBufferSize_32f(order, &bytes));
    std::vector<std::byte> work(bytes);
    const auto transformRows = [&](std::span<float> rows) {
        timed(use.seconds, [&] {
            for (std::size_t i = 0; i < rows.size(); i += N)
                check(rvngWHT_32f(&rows[i], &rows[i], order, RvnScaleBySqrtN, work.data()));
        });
    };
    for (std::size_t i = 0; i < blocks.size(); i += step) {
        const std::span<float> batch = blocks.subspan(i, std::min(step, blocks.size() - i));
        transformRows(batch);
        for (std::size_t block = 0; block < batch.size(); block += N * N)
            transpose(&batch[block], N);
        transformRows(batch);
    }
    use.transforms += static_cast<std::int64_t>(2 * blocks.size() / N);
}

void run(int argc, char** argv)
{
    Options options;
    if (!readOptions(options, argc, argv))
        return;
    const Picture original = readPicture(options.input);
    expectOtherFile(options.output, options.input,
                    "is the input; the rebuilt picture needs another name");

    KernelUse use;
    Planes planes = splitPicture(original, options.order);
    transformBlocks(planes.values, options.order, use);
    const Selection selection = keepLargest(planes.values, options.share);
    transformBlocks(planes.values, options.order, use); // its own inverse
    const Picture rebuilt = joinPlanes(planes, original);

    PartFile file(options.output);
    writePicture(file, rebuilt);
    file.commit();
    printReport(options, original, planes.layout, selection, compare(original, rebuilt), use);
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("hadamard", argc, argv, run);
}
