// The Walsh-Hadamard kernels as data: straight lines, and above them rows and columns in passes
// over work memory. An order k has k 2^k additions either way.

#include "generator/families.h"
#include "generator/passes/finished.h"
#include "generator/wht/butterflies.h"
#include "wht/passes.h"

namespace rvn::generator
{

namespace
{

using wht::BufferedPlan;

Graph graphOf(int order)
{
    GraphBuilder builder;
    return finished(builder, walshHadamard(builder.loads(1 << order)));
}

// A pass and the part that it runs over.
void add(std::vector<Part>& parts, std::vector<Pass>& passes, int order, int runs, Pass pass)
{
    pass.part = static_cast<int>(parts.size());
    passes.push_back(pass);
    parts.push_back({graphOf(order), pass.to == Memory::Destination, runs});
}

} // namespace

Kernel walshHadamardKernel(int order, Format format)
{
    const int N = 1 << order;
    const bool isStraight = order <= wht::highestStraightLineOrder;
    const std::string suffix = "_" + std::to_string(order) + "_" + suffixOf(format);
    Kernel kernel{.family = "wht",
                  .name = "wht" + suffix,
                  .transform = "Walsh-Hadamard transform of order " + std::to_string(order),
                  .method = "butterflies",
                  .format = format,
                  .row = {.additions = order * N, .multiplications = N}};
    const Exported exported{"rvngWHT" + suffix, "Walsh-Hadamard transform", elementTypeOf(format),
                            selfInverseScale(N),
                            isStraight ? WorkMemory::Ignored : WorkMemory::Used};
    if (isStraight) {
        kernel.parts = {{graphOf(order)}};
        kernel.functions = std::vector<StraightLine>{{exported, plainSlots(N), plainSlots(N)}};
        return kernel;
    }

    const BufferedPlan& plan = wht::bufferedPlan(order);
    const int rowLength = 1 << plan.rowOrder;
    const int rows = plan.blockLength() / rowLength;
    const bool inBlocks = plan.finalOrder > 0;
    const std::string rowTitle = "rows of order " + std::to_string(plan.rowOrder);
    const std::string columnTitle = "columns of order " + std::to_string(plan.columnOrder);
    const std::string finalTitle = "final columns of order " + std::to_string(plan.finalOrder);
    std::vector<Pass> passes;
    add(kernel.parts, passes, plan.rowOrder, plan.blocks() * rows,
        {.title = rowTitle,
         .from = Memory::Source,
         .to = inBlocks ? Memory::Tail : Memory::Work,
         .count = rows,
         .step = rowLength,
         .stride = 1,
         .isInBlock = inBlocks});
    add(kernel.parts, passes, plan.columnOrder, plan.blocks() * rowLength,
        {.title = columnTitle,
         .from = inBlocks ? Memory::Tail : Memory::Work,
         .to = inBlocks ? Memory::Work : Memory::Destination,
         .count = rowLength,
         .step = 1,
         .stride = rowLength,
         .isInBlock = inBlocks});
    if (inBlocks)
        add(kernel.parts, passes, plan.finalOrder, plan.blockLength(),
            {.title = finalTitle,
             .from = Memory::Work,
             .to = Memory::Destination,
             .count = plan.blockLength(),
             .step = 1,
             .stride = plan.blockLength(),
             .isInBlock = false});
    kernel.method = rowTitle + ", " + columnTitle + (inBlocks ? ", " + finalTitle : "");
    kernel.functions =
        Buffered{exported, N, plan.blocks(), plan.blockLength(), plan.workElements(), passes};
    return kernel;
}

} // namespace rvn::generator
