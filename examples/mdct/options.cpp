// options.cpp - the command line, read with getopt_long, its own messages switched off: ours is the
// one line the user sees.
#include "options.h"

#include "arguments.h"
#include "failure.h"

#include <bit>
#include <filesystem>
#include <getopt.h>
#include <string_view>

namespace mdct
{

using examples::UsageFailure;

namespace
{

constexpr int shortestHop = 64;
constexpr int longestHop = 32768;

constexpr option longOptions[] = {
    {"hop", required_argument, nullptr, 'n'},
    {"keep", required_argument, nullptr, 'k'},
    {"window", required_argument, nullptr, 'w'},
    {"output", required_argument, nullptr, 'o'},
    {"picture", required_argument, nullptr, 'p'},
    {"help", no_argument, nullptr, 'h'},
    {nullptr, 0, nullptr, 0},
};

int hopOf(std::string_view text)
{
    const int hop = examples::wholeNumber("the hop", text, shortestHop, longestHop);
    if (!std::has_single_bit(static_cast<unsigned>(hop)))
        throw UsageFailure("the hop must be a power of two, not " + std::to_string(hop));
    return hop;
}

Window windowOf(std::string_view text)
{
    if (text == "sine")
        return Window::sine;
    if (text == "kbd")
        return Window::kaiserBessel;
    throw UsageFailure("the window must be sine or kbd, not '" + std::string(text) + "'");
}

std::string fileName(const char* what, const char* text)
{
    if (*text == '\0')
        throw UsageFailure(std::string("the name of the ") + what + " is empty");
    return text;
}

} // namespace

Options parseOptions(int argc, char** argv)
{
    Options options;
    opterr = 0;
    for (int c; (c = getopt_long(argc, argv, ":n:k:w:o:p:h", longOptions, nullptr)) != -1;) {
        switch (c) {
        case 'n':
            options.hop = hopOf(optarg);
            break;
        case 'k':
            options.share = examples::shareOf(optarg);
            break;
        case 'w':
            options.window = windowOf(optarg);
            break;
        case 'o':
            options.output = fileName("rebuilt recording", optarg);
            break;
        case 'p':
            options.picture = fileName("picture", optarg);
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
    const std::string stem = std::filesystem::path(options.input).stem().string();
    if (options.output.empty())
        options.output = stem + ".mdct.wav";
    if (options.picture.empty())
        options.picture = stem + ".mdct.png";
    if (options.output == options.picture)
        throw UsageFailure("the rebuilt recording and the picture need two names");
    return options;
}

const char* usageText()
{
    return R"(Usage: mdct [options] AUDIO

Takes an audio file of up to eight channels through a modified discrete cosine transform,
windowed and overlapped by half, drops all but the strongest coefficients, rebuilds the
recording from the others and draws them over time and frequency. Prints how near the
result comes, how near all coefficients come, and the speed of the transforms.

  -n, --hop N         samples from one frame to the next, half a frame: a power of two,
                      64 to 32768 (default 1024)
  -k, --keep SHARE    the share of the coefficients that is kept, above 0 and up to 1
                      (default 0.1; 1 rebuilds the recording but for rounding)
  -w, --window NAME   sine, or kbd for the Kaiser-Bessel-derived one (default sine)
  -o, --output FILE   the rebuilt recording, a WAV file of 32-bit floats
                      (default: the input's name with .mdct.wav, here)
  -p, --picture FILE  the picture, a PNG (default: the input's name with .mdct.png, here)
  -h, --help          print this text
)";
}

} // namespace mdct
