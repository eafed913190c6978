// options.cpp - the command line, read with getopt_long, its own messages switched off: ours is the
// one line the user sees.
#include "options.h"

#include "arguments.h"
#include "failure.h"

#include <filesystem>
#include <getopt.h>

namespace spectrogram
{

using examples::offendingOption;
using examples::soleInput;
using examples::UsageFailure;
using examples::wholeNumber;

namespace
{

constexpr int shortestLength = 2;
constexpr int longestLength = 64;

enum LongOption : int { longHop = examples::firstLongOption, longIq, longHelp };

constexpr option longOptions[] = {
    {"length", required_argument, nullptr, 'n'}, {"hop", required_argument, nullptr, longHop},
    {"output", required_argument, nullptr, 'o'}, {"iq", no_argument, nullptr, longIq},
    {"help", no_argument, nullptr, longHelp},    {nullptr, 0, nullptr, 0},
};

} // namespace

Options parseOptions(int argc, char** argv)
{
    Options options;
    std::string hop;
    opterr = 0;
    for (int c; (c = getopt_long(argc, argv, ":n:o:h", longOptions, nullptr)) != -1;) {
        switch (c) {
        case 'n':
            options.length = wholeNumber("the length", optarg, shortestLength, longestLength);
            break;
        case longHop:
            hop = optarg;
            if (hop.empty())
                throw UsageFailure("the hop is empty");
            break;
        case 'o':
            options.output = optarg;
            if (options.output.empty())
                throw UsageFailure("the name of the picture is empty");
            break;
        case longIq:
            options.iq = true;
            break;
        case 'h':
        case longHelp:
            options.helpOnly = true;
            return options;
        case ':':
            throw UsageFailure("option '" + offendingOption(argv) + "' needs a value");
        default:
            throw UsageFailure("unknown option '" + offendingOption(argv) + "'; see --help");
        }
    }
    options.input = soleInput(argc, argv);
    options.hop = hop.empty() ? options.length / 2 : wholeNumber("the hop", hop, 1, options.length);
    if (options.output.empty())
        options.output = std::filesystem::path(options.input).stem().string() + ".png";
    return options;
}

const char* usageText()
{
    return R"(Usage: spectrogram [options] AUDIO

Cuts an audio file, mono or stereo, into Hann-windowed frames, transforms them, writes
a picture of time, frequency and level, and prints the strongest frequencies, the speed
of the transforms and their round-trip error.

  -n, --length N     samples of a frame, 2 to 64 (default 64)
      --hop H        samples from one frame to the next, 1 to N (default N/2)
  -o, --output FILE  the picture, a PNG (default: the input's name with .png, here)
      --iq           the two channels are the parts I and Q of one complex signal;
                     frequencies then run from minus to plus half the sample rate
  -h, --help         print this text
)";
}

} // namespace spectrogram
