// console.cpp - see console.h.
#include "console.h"

#include "levels.h"
#include "plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{

constexpr int mostTaps = 8191;

double frequency(const std::string& name, const std::string& text)
{
    return number(name, text, 0, 1e9, true);
}

Band bandOf(const std::string& text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos)
        throw UsageFailure("--bandpass must be two frequencies, LOW,HIGH, not '" + text + "'");
    const Band band = {frequency("--bandpass", text.substr(0, comma)),
                       frequency("--bandpass", text.substr(comma + 1))};
    if (band.low >= band.high)
        throw UsageFailure("the band '" + text + "' must begin below its end");
    return band;
}

std::string responseText(const Options& options)
{
    return options.responseFile.empty() ? bandText(options.band) : titleOf(options.responseFile);
}

void drawPicture(PartFile& file, const Options& options, const Sound& sound, const Sound& filtered)
{
    const auto before = meanLevels(sound), after = meanLevels(filtered);
    double top = -200;
    for (const auto* levels : {&before, &after})
        for (const auto& [hertz, level] : *levels)
            top = std::max(top, level);
    top = 10 * std::ceil(top / 10);
    Plot plot(1000, 480);
    plot.table("before", before);
    plot.table("after", after);
    plot << "set title " + quoted(titleOf(options.input)) + " font ',14'"
         << "set xlabel 'frequency in Hz'"
         << "set ylabel 'mean level in dBFS'"
         << "set logscale x"
         << "set grid xtics mxtics ytics linetype 1 linecolor '#dddddd', linetype 1 linecolor "
            "'#eeeeee'"
         << "set border 3"
         << "set key top right"
         << "set xrange [" + plotNumber(before[0].first) + ":" +
                plotNumber(sound.sampleRate / 2.0) + "]"
         << "set yrange [" + plotNumber(top - 100) + ":" + plotNumber(top) + "]";
    for (const double edge : {options.band.low, options.band.high})
        if (edge > 0 && std::isfinite(edge) && options.responseFile.empty())
            plot << "set arrow from " + plotNumber(edge) + ",graph 0 to " + plotNumber(edge) +
                        ",graph 1 nohead dashtype 2 linecolor '#666666'";
    plot << "plot $before with lines linewidth 2 linecolor '#999999' title 'before', $after with "
            "lines linewidth 2 linecolor '#0060ad' title " +
                quoted("after: " + responseText(options));
    plot.draw(file);
}

} // namespace

bool readOptions(Options& options, int argc, char** argv)
{
    CommandLine line("convolve",
                     "Filters an audio file, mono or stereo, with one of four finite impulse "
                     "responses.");
    std::string lowpass, highpass, bandpass, taps;
    line.input("AUDIO", options.input);
    line.option("--lowpass", "HZ", lowpass, "pass what is below a frequency");
    line.option("--highpass", "HZ", highpass, "pass what is above a frequency");
    line.option("--bandpass", "LOW,HIGH", bandpass, "pass what is between two frequencies");
    line.option("--response", "FILE", options.responseFile, "taps in mono audio, or as text");
    line.option("--taps", "N", taps, "of the first three, odd, 3 to 8191; by default 33");
    line.option("-o,--output", "FILE", options.output,
                "a WAV file: the input's name with .filtered.wav");
    line.option("-p,--picture", "FILE", options.picture, "draw the mean levels before and after");
    if (!line.parse(argc, argv))
        return false;
    const auto given =
        std::ranges::count_if(std::vector{lowpass, highpass, bandpass, options.responseFile},
                              [](const std::string& text) { return !text.empty(); });
    if (given != 1)
        throw UsageFailure(std::string(given == 0 ? "one" : "only one") +
                           " of --lowpass, --highpass, --bandpass and --response is needed");
    if (!taps.empty() && !options.responseFile.empty())
        throw UsageFailure("--taps is for designed responses; that of a file has its own");
    options.taps = taps.empty() ? 33 : wholeNumber("--taps", taps, 3, mostTaps);
    if (options.taps % 2 == 0)
        throw UsageFailure("--taps must be odd, not " + taps);
    if (!lowpass.empty())
        options.band = {0, frequency("--lowpass", lowpass)};
    if (!highpass.empty())
        options.band = {frequency("--highpass", highpass), INFINITY};
    if (!bandpass.empty())
        options.band = bandOf(bandpass);
    options.output = resultName(options.output, options.input, ".filtered.wav");
    if (options.output == options.picture)
        throw UsageFailure("the filtered recording and the picture need two names");
    return true;
}

void expectOtherFiles(const Options& options)
{
    for (const auto& [file, what] :
         {std::pair(options.output, "the filtered recording"), {options.picture, "the picture"}})
        for (const auto& [input, words] : {std::pair(options.input, "is the input; "),
                                           {options.responseFile, "is the response; "}})
            expectOtherFile(file, input, words + std::string(what) + " needs another name");
}

std::vector<float> responseOf(const Options& options, int sampleRate)
{
    if (!options.responseFile.empty())
        return readResponse(options.responseFile, sampleRate);
    std::vector<float> response = designResponse(options.band, options.taps, sampleRate);
    const double needed = tapsNeeded(options.band, sampleRate);
    if (options.taps < needed)
        std::fprintf(
            stderr,
            "convolve: warning: %d taps cannot make a %s: its edges are some %.0f Hz wide; "
            "it takes %.0f taps%s\n",
            options.taps, bandText(options.band).c_str(), 2 * 1.65 * sampleRate / options.taps,
            2 * std::floor(needed / 2) + 1,
            needed > mostTaps ? ", more than there can be here" : "");
    return response;
}

void writeFiles(const Options& options, const Sound& sound, const Sound& filtered)
{
    PartFile file(options.output);
    std::optional<PartFile> picture;
    if (!options.picture.empty())
        picture.emplace(options.picture);
    writeSound(file, filtered);
    if (picture)
        drawPicture(*picture, options, sound, filtered);
    file.commit();
    if (picture)
        picture->commit();
}

void printReport(const Options& options, const Sound& sound, std::size_t taps,
                 const Sound& filtered, const Use& use, Distance distance)
{
    printSound(options.input, sound);
    std::printf("response     %s: %s in %s, transforms of %zu samples\n",
                options.responseFile.empty() ? bandText(options.band).c_str()
                                             : printable(options.responseFile).c_str(),
                counted(taps, "tap").c_str(), counted(partitionsOf(taps), "partition").c_str(),
                transformLength);
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
    std::printf("filtered     %s, %s of 32-bit float\n", printable(options.output).c_str(),
                counted(filtered.samples(), "sample").c_str());
    if (!options.picture.empty())
        std::printf("picture      %s\n", printable(options.picture).c_str());
}
