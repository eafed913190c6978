// options.cpp - the command line, read with getopt_long, its own messages switched off: ours is the
// one line the user sees.
#include "options.h"

#include "arguments.h"
#include "failure.h"

#include <filesystem>
#include <getopt.h>

namespace hadamard
{

using examples::UsageFailure;

namespace
{

constexpr int lowestOrder = 1;
constexpr int highestOrder = 13;

constexpr option longOptions[] = {
    {"block", required_argument, nullptr, 'b'},
    {"keep", required_argument, nullptr, 'k'},
    {"output", required_argument, nullptr, 'o'},
    {"help", no_argument, nullptr, 'h'},
    {nullptr, 0, nullptr, 0},
};

} // namespace

Options parseOptions(int argc, char** argv)
{
    Options options;
    opterr = 0;
    for (int c; (c = getopt_long(argc, argv, ":b:k:o:h", longOptions, nullptr)) != -1;) {
        switch (c) {
        case 'b':
            options.order =
                examples::wholeNumber("the order of a block", optarg, lowestOrder, highestOrder);
            break;
        case 'k':
            options.share = examples::shareOf(optarg);
            break;
        case 'o':
            options.output = optarg;
            if (options.output.empty())
                throw UsageFailure("the name of the rebuilt picture is empty");
            break;
        case 'h':
            options.helpOnly = true;
            return options;
        case ':':
            throw UsageFailure("option '" + examples::offendingOption(argv) + "' needs a value");
        default:
            throw UsageFailure("unknown option '" + examples::offendingOption(argv) +
                               "'; see --help");
        }
    }
    options.input = examples::soleInput(argc, argv);
    if (options.output.empty())
        options.output = std::filesystem::path(options.input).stem().string() + "-rebuilt.png";
    return options;
}

const char* usageText()
{
    return R"(Usage: hadamard [options] PICTURE

Cuts a picture, a PNG, into square blocks, takes the two-dimensional Walsh-Hadamard
transform of each, drops all but the largest coefficients of the whole picture, rebuilds
it by the same transform, and prints how near the result comes and the speed of the
transforms. Colours are handled as luma and chroma, transparency is left alone.

  -b, --block ORDER  blocks of 2^ORDER x 2^ORDER pixels, 1 to 13 (default 3)
  -k, --keep SHARE   the share of the coefficients that is kept, above 0 and up to 1
                     (default 0.1; 1 rebuilds the picture exactly)
  -o, --output FILE  the rebuilt picture, a PNG (default: the input's name with
                     -rebuilt.png, here)
  -h, --help         print this text
)";
}

} // namespace hadamard
