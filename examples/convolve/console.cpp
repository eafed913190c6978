// console.cpp - see console.h.
#include "console.h"

#include "levels.h"
#include "plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace convolve
{
namespace
{

constexpr examples::Bounds aFrequency = {0, 1e9, true};
constexpr int mostTaps = 8191;

Band bandOf(const std::string& text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos)
        throw examples::UsageFailure("--bandpass must be two frequencies, LOW,HIGH, not '" + text +
                                     "'");
    const Band band = {examples::numberOf("--bandpass", text.substr(0, comma), aFrequency),
                       examples::numberOf("--bandpass", text.substr(comma + 1), aFrequency)};
    if (band.low >= band.high)
        throw examples::UsageFailure("the band '" + text + "' must begin below its end");
    return band;
}

std::string responseText(const Options& options)
{
    return options.responseFile.empty() ? bandText(options.band)
                                        : examples::titleOf(options.responseFile);
}

void drawPicture(examples::PartFile& file, const Options& options, const examples::Sound& sound,
                 const examples::Sound& filtered)
{
    const auto before = meanLevels(sound), after = meanLevels(filtered);
    double top = -200;
    for (const auto* levels : {&before, &after})
        for (const auto& [hertz, level] : *levels)
            top = std::max(top, level);
    top = 10 * std::ceil(top / 10);
    examples::Plot plot(1000, 480);
    plot.table("before", before);
    plot.table("after", after);
    plot << "set title " + examples::quoted(examples::titleOf(options.input)) + " font ',14'"
         << "set xlabel 'frequency in Hz'" << "set ylabel 'mean level in dBFS'"
         << "set logscale x" << "set grid xtics mxtics ytics linecolor '#dddddd'"
         << "set border 3" << "set key top right"
         << "set xrange [" + examples::number(before[0].first) + ":" +
                examples::number(sound.sampleRate / 2.0) + "]"
         << "set yrange [" + examples::number(top - 100) + ":" + examples::number(top) + "]";
    for (const double edge : {options.band.low, options.band.high})
        if (edge > 0 && std::isfinite(edge) && options.responseFile.empty())
            plot << "set arrow from " + examples::number(edge) + ",graph 0 to " +
                        examples::number(edge) +
                        ",graph 1 nohead dashtype 2 linecolor '#666666'";
    plot << "plot $before with lines linewidth 2 linecolor '#999999' title 'before', $after with "
            "lines linewidth 2 linecolor '#0060ad' title " +
                examples::quoted("after: " + responseText(options));
    plot.draw(file);
}

} // namespace

bool readOptions(Options& options, int argc, char** argv)
{
    examples::CommandLine line(
        "convolve",
        "Filters an audio file, mono or stereo, with a finite impulse response: overlap-add with\n"
        "real transforms of 64 samples. Writes the full convolution, taps - 1 samples longer than\n"
        "the input, and prints the speed, the peaks and the distance from direct convolution. One\n"
        "of the four responses is needed.");
    std::string lowpass, highpass, bandpass, taps;
    line.input("AUDIO", options.input);
    line.text("--lowpass", lowpass, "HZ", "pass what is below a frequency");
    line.text("--highpass", highpass, "HZ", "pass what is above a frequency");
    line.text("--bandpass", bandpass, "LOW,HIGH", "pass what is between two frequencies");
    line.file("--response", options.responseFile,
              "the response in an audio file of one channel, or in a text file of numbers with "
              "spaces, commas or line ends between");
    line.text("--taps", taps, "N", "taps of the first three, odd, 3 to 8191 (33)");
    line.file("-o,--output", options.output,
              "the filtered recording, a WAV file of 32-bit floats (the input's name with "
              ".filtered.wav, here)");
    line.file("-p,--picture", options.picture,
              "draw the mean levels over frequency before and after, a PNG");
    if (!line.parse(argc, argv))
        return false;
    const std::string* responses[] = {&lowpass, &highpass, &bandpass, &options.responseFile};
    const auto given = std::ranges::count_if(responses, [](auto* text) { return !text->empty(); });
    if (given != 1)
        throw examples::UsageFailure(
            std::string(given == 0 ? "one" : "only one") +
            " of --lowpass, --highpass, --bandpass and --response is needed");
    if (!taps.empty() && !options.responseFile.empty())
        throw examples::UsageFailure("--taps is for designed responses; that of a file has its own");
    if (!taps.empty())
        options.taps = examples::wholeNumber("--taps", taps, 3, mostTaps);
    if (options.taps % 2 == 0)
        throw examples::UsageFailure("--taps must be odd, not " + taps);
    if (!lowpass.empty())
        options.band = {0, examples::numberOf("--lowpass", lowpass, aFrequency)};
    if (!highpass.empty())
        options.band = {examples::numberOf("--highpass", highpass, aFrequency), INFINITY};
    if (!bandpass.empty())
        options.band = bandOf(bandpass);
    if (options.output.empty())
        options.output = examples::resultName(options.input, ".filtered.wav");
    if (options.output == options.picture)
        throw examples::UsageFailure("the filtered recording and the picture need two names");
    return true;
}

void expectOtherFiles(const Options& options)
{
    for (const auto& [file, what] :
         {std::pair(options.output, "the filtered recording"), {options.picture, "the picture"}})
        for (const auto& [input, words] :
             {std::pair(options.input, "is the input; "), {options.responseFile, "is the response; "}})
            examples::expectOtherFile(
                file, input, (words + std::string(what) + " needs another name").c_str());
}

std::vector<float> responseOf(const Options& options, int sampleRate)
{
    if (!options.responseFile.empty())
        return readResponse(options.responseFile, sampleRate);
    std::vector<float> response = designResponse(options.band, options.taps, sampleRate);
    const double needed = tapsNeeded(options.band, sampleRate);
    if (options.taps < needed)
        std::fprintf(stderr,
                     "convolve: warning: %d taps cannot make a %s: its edges are some %.0f Hz wide; "
                     "it takes %.0f taps%s\n",
                     options.taps, bandText(options.band).c_str(),
                     2 * 1.65 * sampleRate / options.taps, 2 * std::floor(needed / 2) + 1,
                     needed > mostTaps ? ", more than there can be here" : "");
    return response;
}

void writeFiles(const Options& options, const examples::Sound& sound,
                const examples::Sound& filtered)
{
    examples::PartFile file(options.output);
    std::optional<examples::PartFile> picture;
    if (!options.picture.empty())
        picture.emplace(options.picture);
    writeSound(file, filtered);
    if (picture)
        drawPicture(*picture, options, sound, filtered);
    file.commit();
    if (picture)
        picture->commit();
}

void printReport(const Options& options, const examples::Sound& sound, std::size_t taps,
                 const examples::Sound& filtered, const Use& use, Distance distance)
{
    printSound(options.input, sound);
    std::printf("response     %s: %s in %s, transforms of %zu samples\n",
                options.responseFile.empty() ? bandText(options.band).c_str()
                                             : examples::printable(options.responseFile).c_str(),
                examples::counted(taps, "tap").c_str(),
                examples::counted(partitionsOf(taps), "partition").c_str(), transformLength);
    std::printf("speed        %.3g million samples per second (%zu samples and %zu transforms in "
                "%.3g ms, with the products)\n",
                static_cast<double>(use.samples) / std::max(use.seconds, 1e-9) / 1e6, use.samples,
                use.transforms, use.seconds * 1e3);
    std::printf("peak         %.6g in, %.6g out\n", static_cast<double>(sound.peak()),
                static_cast<double>(filtered.peak()));
    std::printf("distance     relative rms %.2e from direct convolution in double\n",
                distance.relative);
    std::printf("             %.2e relative to the input's scale; %.0f %% of the output compared\n",
                distance.ofInput, 100 * distance.share);
    std::printf("filtered     %s, %s of 32-bit float\n",
                examples::printable(options.output).c_str(),
                examples::counted(filtered.samples(), "sample").c_str());
    if (!options.picture.empty())
        std::printf("picture      %s\n", examples::printable(options.picture).c_str());
}

} // namespace convolve
