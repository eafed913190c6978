// main.cpp - the hadamard program: read, transform, drop, transform back, write, report.
//
//     hadamard [-b ORDER] [-k SHARE] [-o REBUILT.png] PICTURE.png
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "blocks.h"
#include "comparison.h"
#include "options.h"
#include "part_file.h"
#include "planes.h"
#include "png_input.h"
#include "png_output.h"
#include "program.h"
#include "report.h"
#include "selection.h"

#include <cstdio>

namespace
{

using namespace hadamard;

void run(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (options.helpOnly) {
        std::fputs(usageText(), stdout);
        return;
    }
    const Picture original = examples::readPng(options.input);
    examples::expectOtherFile(options.output, options.input,
                              "is the input; the rebuilt picture needs another name");

    Planes planes = splitPicture(original, options.order);
    KernelUse use = transformBlocks(planes.values, options.order);
    const examples::Selection selection = examples::keepLargest(planes.values, options.share);
    use += transformBlocks(planes.values, options.order); // its own inverse
    const Picture rebuilt = joinPlanes(planes, original);

    examples::PartFile file(options.output);
    writePng(file, rebuilt);
    file.commit();
    printReport(options, original, planes.layout, selection, compare(original, rebuilt), use);
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("hadamard", argc, argv, run);
}
