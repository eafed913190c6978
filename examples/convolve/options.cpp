// options.cpp - the command line, read with getopt_long, its own messages switched off: ours is the
// one line the user sees.
#include "options.h"

#include "arguments.h"
#include "failure.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <getopt.h>
#include <string_view>

namespace convolve
{

using examples::offendingOption;
using examples::UsageFailure;

namespace
{

constexpr int fewestTaps = 3;
constexpr int mostTaps = 8191;

enum LongOption : int {
    longLowpass = examples::firstLongOption,
    longHighpass,
    longBandpass,
    longTaps,
    longResponse,
};

constexpr option longOptions[] = {
    {"lowpass", required_argument, nullptr, longLowpass},
    {"highpass", required_argument, nullptr, longHighpass},
    {"bandpass", required_argument, nullptr, longBandpass},
    {"taps", required_argument, nullptr, longTaps},
    {"response", required_argument, nullptr, longResponse},
    {"output", required_argument, nullptr, 'o'},
    {"help", no_argument, nullptr, 'h'},
    {nullptr, 0, nullptr, 0},
};

double frequency(std::string_view text)
{
    double hertz = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), hertz);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(hertz > 0) || !std::isfinite(hertz))
        throw UsageFailure("a frequency must be a number of Hz above 0, not '" + std::string(text) +
                           "'");
    return hertz;
}

Band bandOf(std::string_view text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos)
        throw UsageFailure("a band is two frequencies, LOW,HIGH, not '" + std::string(text) + "'");
    const Band band = {frequency(text.substr(0, comma)), frequency(text.substr(comma + 1))};
    if (band.low >= band.high)
        throw UsageFailure("the band '" + std::string(text) + "' must begin below its end");
    return band;
}

int oddTaps(std::string_view text)
{
    const int taps = examples::wholeNumber("the number of taps", text, fewestTaps, mostTaps);
    if (taps % 2 == 0)
        throw UsageFailure("the number of taps must be odd, not " + std::to_string(taps));
    return taps;
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
    int responses = 0;
    bool tapsGiven = false;
    opterr = 0;
    for (int c; (c = getopt_long(argc, argv, ":o:h", longOptions, nullptr)) != -1;) {
        switch (c) {
        case longLowpass:
            options.band = {0, frequency(optarg)};
            ++responses;
            break;
        case longHighpass:
            options.band = {frequency(optarg), INFINITY};
            ++responses;
            break;
        case longBandpass:
            options.band = bandOf(optarg);
            ++responses;
            break;
        case longResponse:
            options.responseFile = fileName("response", optarg);
            ++responses;
            break;
        case longTaps:
            options.taps = oddTaps(optarg);
            tapsGiven = true;
            break;
        case 'o':
            options.output = fileName("output", optarg);
            break;
        case 'h':
            options.helpOnly = true;
            return options;
        case ':':
            throw UsageFailure("option '" + offendingOption(argv) + "' needs a value");
        default:
            throw UsageFailure("unknown option '" + offendingOption(argv) + "'; see --help");
        }
    }
    options.input = examples::soleInput(argc, argv);
    if (responses != 1)
        throw UsageFailure("one of --lowpass, --highpass, --bandpass and --response is needed");
    if (tapsGiven && !options.responseFile.empty())
        throw UsageFailure("--taps is for designed responses; that of a file has its own");
    if (options.output.empty())
        options.output = std::filesystem::path(options.input).stem().string() + ".filtered.wav";
    return options;
}

const char* usageText()
{
    return R"(Usage: convolve [options] AUDIO

Filters an audio file, mono or stereo, with a finite impulse response: overlap-add with
real transforms of 64 samples. Writes the full convolution, taps - 1 samples longer than
the input, and prints the speed, the peaks and the distance from direct convolution. One
of the four responses is needed.

      --lowpass HZ         pass what is below a frequency
      --highpass HZ        pass what is above a frequency
      --bandpass LOW,HIGH  pass what is between two frequencies
      --response FILE      the response in an audio file of one channel, or in a text
                           file of numbers with spaces, commas or line ends between
      --taps N             taps of the first three, odd, 3 to 8191 (default 33)
  -o, --output FILE        the filtered recording, a WAV file of 32-bit floats
                           (default: the input's name with .filtered.wav, here)
  -h, --help               print this text
)";
}

} // namespace convolve
