// options.cpp - the command line, read with getopt_long, its own messages switched off: ours is the
// one line the user sees.
#include "options.h"

#include "arguments.h"
#include "failure.h"

#include <charconv>
#include <filesystem>
#include <getopt.h>
#include <limits>
#include <string_view>

namespace ofdm
{

using examples::UsageFailure;

namespace
{

enum : int { seedOption = examples::firstLongOption, constellationOption, errorRateOption };

constexpr option longOptions[] = {
    {"modulation", required_argument, nullptr, 'm'},
    {"spread", required_argument, nullptr, 's'},
    {"snr", required_argument, nullptr, 'n'},
    {"channel", required_argument, nullptr, 'c'},
    {"seed", required_argument, nullptr, seedOption},
    {"output", required_argument, nullptr, 'o'},
    {"constellation", required_argument, nullptr, constellationOption},
    {"ber", required_argument, nullptr, errorRateOption},
    {"help", no_argument, nullptr, 'h'},
    {nullptr, 0, nullptr, 0},
};

Modulation modulationOf(std::string_view text)
{
    if (text == "qpsk")
        return Modulation::qpsk;
    if (text == "16qam")
        return Modulation::qam16;
    throw UsageFailure("the modulation must be qpsk or 16qam, not '" + std::string(text) + "'");
}

ChannelKind channelOf(std::string_view text)
{
    if (text == "white")
        return ChannelKind::white;
    if (text == "multipath")
        return ChannelKind::multipath;
    throw UsageFailure("the channel must be white or multipath, not '" + std::string(text) + "'");
}

int spreadOf(std::string_view text)
{
    for (const int length : {12, 24, 36, 48, 60})
        if (text == std::to_string(length))
            return length;
    throw UsageFailure("points are spread over 12, 24, 36, 48 or 60 subcarriers, not '" +
                       std::string(text) + "'");
}

double decibelsOf(std::string_view text)
{
    if (text == "inf")
        return std::numeric_limits<double>::infinity();
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(value >= -20 && value <= 100))
        throw UsageFailure("the SNR must be a number of dB from -20 to 100 or inf, not '" +
                           std::string(text) + "'");
    return value;
}

std::string fileName(const char* what, const char* text)
{
    if (*text == '\0')
        throw UsageFailure(std::string("the name of the ") + what + " is empty");
    return text;
}

void expectThreeNames(const Options& options)
{
    if (options.output == options.constellation || options.output == options.errorRates ||
        (!options.errorRates.empty() && options.errorRates == options.constellation))
        throw UsageFailure("each picture needs a name of its own");
}

} // namespace

Options parseOptions(int argc, char** argv)
{
    Options options;
    opterr = 0;
    for (int c; (c = getopt_long(argc, argv, ":m:s:n:c:o:h", longOptions, nullptr)) != -1;) {
        switch (c) {
        case 'm':
            options.modulation = modulationOf(optarg);
            break;
        case 's':
            options.spread = spreadOf(optarg);
            break;
        case 'n':
            options.decibels = decibelsOf(optarg);
            break;
        case 'c':
            options.channel = channelOf(optarg);
            break;
        case seedOption:
            options.seed = static_cast<std::uint64_t>(examples::wholeNumber(
                "the seed", optarg, 0, std::numeric_limits<std::int32_t>::max()));
            break;
        case 'o':
            options.output = fileName("received picture", optarg);
            break;
        case constellationOption:
            options.constellation = fileName("constellation", optarg);
            break;
        case errorRateOption:
            options.errorRates = fileName("plot of the error rates", optarg);
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
        options.output = std::filesystem::path(options.input).stem().string() + "-received.png";
    expectThreeNames(options);
    return options;
}

const char* usageText()
{
    return R"(Usage: ofdm [options] PICTURE

Sends a picture, a PNG of 8 bits a sample, over a simulated radio link of 64 subcarriers:
OFDM with 48 of them for data, 4 pilots and a cyclic prefix of 16 samples, or DFT-spread
OFDM. Writes what arrives and prints bit errors, error vector magnitude, PSNR, the peak
power of both kinds of signal and the speed. Transparency is not sent but kept.

  -m, --modulation NAME   qpsk, or 16qam; Gray mapped (default qpsk)
  -s, --spread M          spread the points by a DFT over M neighbouring subcarriers, one in
                          twelve of them for pilots: 12, 24, 36, 48 or 60 (default: not)
  -n, --snr DECIBELS      Es/N0: the mean power of a data subcarrier over that of the noise
                          on it; -20 to 100, or inf (default 20)
  -c, --channel NAME      multipath: eight taps and a carrier that drifts, both of which
                          the receiver estimates; white: noise alone, with a receiver that
                          knows this and estimates nothing (default multipath)
      --seed NUMBER       of the channel and the noise (default 1)
  -o, --output FILE       the received picture, a PNG (default: the input's name with
                          -received.png, here)
      --constellation FILE   draw the received points, a PNG
      --ber FILE          measure and draw bit error rates over Es/N0 beside the closed
                          forms, a PNG; takes some seconds
  -h, --help              print this text
)";
}

} // namespace ofdm
