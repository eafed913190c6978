// options.cpp - the command line, read with getopt_long, its own messages switched off: ours is the
// one line the user sees.
#include "options.h"

#include "failure.h"

#include <charconv>
#include <filesystem>
#include <getopt.h>
#include <string_view>

namespace spectrogram
{
namespace
{

constexpr int shortestLength = 2;
constexpr int longestLength = 64;

// Values of the options that have a long name only; above every character.
enum LongOption : int { longHop = 256, longIq, longHelp };

constexpr option longOptions[] = {
    {"length", required_argument, nullptr, 'n'}, {"hop", required_argument, nullptr, longHop},
    {"output", required_argument, nullptr, 'o'}, {"iq", no_argument, nullptr, longIq},
    {"help", no_argument, nullptr, longHelp},    {nullptr, 0, nullptr, 0},
};

int parseNumber(std::string_view name, std::string_view text, int least, int most)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || value < least || value > most)
        throw UsageFailure(std::string(name) + " must be a whole number from " +
                           std::to_string(least) + " to " + std::to_string(most) + ", not '" +
                           std::string(text) + "'");
    return value;
}

// The option getopt_long stumbled over, as the user wrote it.
std::string offendingOption(char** argv)
{
    if (optopt > 0 && optopt < longHop)
        return std::string("-") + static_cast<char>(optopt);
    return argv[optind - 1];
}

} // namespace

Options parseOptions(int argc, char** argv)
{
    Options options;
    std::string hop;
    opterr = 0;
    for (int c; (c = getopt_long(argc, argv, ":n:o:h", longOptions, nullptr)) != -1;) {
        switch (c) {
        case 'n':
            options.length = parseNumber("the length", optarg, shortestLength, longestLength);
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
    if (optind >= argc)
        throw UsageFailure("no input file; see --help");
    if (optind + 1 < argc)
        throw UsageFailure("one input file at a time: '" + std::string(argv[optind + 1]) +
                           "' is too many");

    options.input = argv[optind];
    options.hop = hop.empty() ? options.length / 2 : parseNumber("the hop", hop, 1, options.length);
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
