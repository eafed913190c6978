// spectrogram_test.cpp - the spectrogram example does its job on real files: it finds tones between
// the bins, draws them where they are, and refuses bad input in one line.
//
// Most tests run the built program on audio files written here and read its output and its picture
// back; the denser tables call the program's parts. SPECTROGRAM_PROGRAM is the program's path.
#include "analysis.h"
#include "level_plot.h"
#include "peaks.h"

#include "image_file.h"
#include "program_test.h"
#include "wav_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <sstream>
#include <sys/stat.h>

namespace
{

using namespace examples;
using namespace spectrogram;
using rvn::tests::Image;
using rvn::tests::RunResult;

using Signal = std::vector<double>;

constexpr int rate = 48000;

Signal tone(int samples, double turnsPerSample, double amplitude, double phase)
{
    Signal signal;
    for (int n = 0; n < samples; ++n)
        signal.push_back(amplitude * std::cos(2 * std::numbers::pi * turnsPerSample * n + phase));
    return signal;
}

// The two parts of amplitude exp(2 pi i turns n).
std::vector<Signal> complexTone(int samples, double turns, double amplitude)
{
    return {tone(samples, turns, amplitude, 0),
            tone(samples, turns, amplitude, -std::numbers::pi / 2)};
}

struct PeakRow {
    std::string signal;
    double frequency, binWidth, level;
};

class Spectrogram : public rvn::tests::ProgramTest
{
protected:
    Spectrogram() : ProgramTest(SPECTROGRAM_PROGRAM) {}

    void write(const std::string& name, const std::vector<Signal>& channels,
               int format = SF_FORMAT_FLOAT) const
    {
        rvn::tests::writeWav(path(name), channels, rate, format);
    }

    // What the program draws of a recording.
    Image pictureOf(const std::string& arguments) const
    {
        const RunResult result = run(arguments + " -o drawn.png");
        EXPECT_EQ(result.status, 0) << result.err;
        const Image image = rvn::tests::readImage(path("drawn.png"));
        EXPECT_EQ(image.width, pictureWidth);
        return image;
    }

    Analysis analysisOf(const std::string& name, int length, int hop, bool iq) const
    {
        Options options;
        options.input = path(name);
        options.length = length;
        options.hop = hop;
        options.iq = iq;
        examples::AudioFile file(options.input);
        return analyse(file, options, plotWidth);
    }
};

std::vector<PeakRow> peakRows(const std::string& out)
{
    const rvn::tests::Pattern row("  ([^ ]+) +(-?[0-9.]+) Hz +([0-9.]+) Hz +(-?[0-9.]+) dBFS");
    std::vector<PeakRow> rows;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);)
        if (const auto found = row.find(line); !found.empty())
            rows.push_back(
                {found[1], std::stod(found[2]), std::stod(found[3]), std::stod(found[4])});
    return rows;
}

TEST_F(Spectrogram, PrintsTheToneWithinATenthOfABin)
{
    const struct {
        int length;
        double bin;
        int format;
        bool iq;
    } cases[] = {
        {64, 10.5, SF_FORMAT_PCM_24, false}, {64, 0.64, SF_FORMAT_PCM_16, false},
        {31, 15.3, SF_FORMAT_PCM_24, false}, {17, 2.51, SF_FORMAT_FLOAT, false},
        {5, 1.2, SF_FORMAT_FLOAT, false},    {31, -15.2, SF_FORMAT_PCM_24, true},
        {16, -0.51, SF_FORMAT_PCM_16, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.length << " samples, bin " << c.bin);
        const double turns = c.bin / c.length;
        if (c.iq)
            write("tone.wav", complexTone(5000, turns, 0.5), c.format);
        else
            write("tone.wav", {tone(5000, turns, 0.5, 1)}, c.format);
        const RunResult result =
            run("tone.wav -n " + std::to_string(c.length) + (c.iq ? " --iq" : ""));
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        const std::vector<PeakRow> rows = peakRows(result.out);
        ASSERT_FALSE(rows.empty()) << result.out;
        const double binWidth = static_cast<double>(rate) / c.length;
        EXPECT_EQ(rows[0].signal, c.iq ? "I/Q" : "mono");
        EXPECT_NEAR(rows[0].frequency, c.bin * binWidth, 0.1 * binWidth);
        EXPECT_NEAR(rows[0].binWidth, binWidth, 1e-4 * binWidth);
        EXPECT_NEAR(rows[0].level, 20 * std::log10(0.5), 0.1);
        EXPECT_LT(result.number("rms error ([-+.e0-9]+)"), 5e-7);
        EXPECT_GT(result.number("rms error ([-+.e0-9]+)"), 1e-9); // single precision is not exact
        EXPECT_EQ(result.number("([0-9]+) of [0-9]+ samples, Hann window"),
                  (5000 - c.length) / (c.length / 2) + 1);
    }
}

// The same for every length that has an in-between, much closer, with phases of all sorts.
TEST_F(Spectrogram, EveryLengthFindsTonesBetweenBins)
{
    for (int length = 3; length <= 64; ++length) {
        for (const double part : {0.0, 0.03, 0.27, 0.5, 0.71, 0.98}) {
            const double bin = part * length / 2;
            SCOPED_TRACE(testing::Message() << length << " samples, bin " << bin);
            write("real.wav", {tone(3 * length, bin / length, 0.7, 17 * part)});
            write("iq.wav", complexTone(3 * length, -bin / length, 0.7));
            for (const bool iq : {false, true}) {
                const Analysis analysis =
                    analysisOf(iq ? "iq.wav" : "real.wav", length, (length + 1) / 2, iq);
                const std::vector<Peak> peaks = strongestPeaks(analysis, analysis.panels[0], 1);
                ASSERT_EQ(peaks.size(), 1u);
                EXPECT_NEAR(peaks[0].frequency * length / rate, iq ? -bin : bin, 0.01);
                EXPECT_NEAR(peaks[0].amplitude, 0.7, 0.01);
            }
        }
    }
}

// Next to zero and to half the sample rate a tone nearly cancels its image in one of the two parts,
// and at zero only one of them is to be seen: neither what is no lone tone nor noise must get a
// huge level from the remainder.
TEST_F(Spectrogram, LevelsNearTheEndsOfTheSpectrumStayPossible)
{
    const auto peaksOf = [&](const Signal& signal) {
        write("ends.wav", {signal}, SF_FORMAT_PCM_16);
        return peakRows(run("ends.wav").out);
    };
    const auto loudest = [](const std::vector<PeakRow>& rows) {
        return rows.empty() ? NAN : std::ranges::max_element(rows, {}, &PeakRow::level)->level;
    };

    Signal step(8000);
    std::fill(step.begin() + 4000, step.end(), 8000 / 32768.0);
    EXPECT_LT(loudest(peaksOf(step)), 20 * std::log10(8000 / 32768.0) + 0.1);
    EXPECT_GT(loudest(peaksOf(step)), 20 * std::log10(8000 / 32768.0) - 4);

    Signal clicked = tone(8000, 5000.0 / rate, 0.1, 0);
    std::fill(clicked.begin() + 4000, clicked.end(), 0);
    clicked[6001] = 30000 / 32768.0;
    clicked[6002] = -clicked[6001];
    const std::vector<PeakRow> rows = peaksOf(clicked);
    ASSERT_FALSE(rows.empty());
    EXPECT_NEAR(rows[0].frequency, 5000, 75);
    EXPECT_LT(loudest(rows), -20 + 0.1);
    EXPECT_GT(loudest(rows), -20 - 4);

    std::minstd_rand random;
    for (const auto& [hertz, noise] :
         {std::pair(0.0, 5e-6), {2.0, 1e-3}, {20.0, 1e-3}, {rate / 2 - 5.0, 1e-3}}) {
        Signal hum = tone(rate, hertz / rate, 800 / 32768.0, 0);
        for (double& sample : hum)
            sample += std::normal_distribution(0.0, noise)(random);
        EXPECT_NEAR(loudest(peaksOf(hum)), 20 * std::log10(800 / 32768.0), 0.5) << hertz;
    }
}

TEST_F(Spectrogram, ListsSeveralPeaksStrongestFirstAndSilenceAsSuch)
{
    Signal sum = tone(9000, 20.3 / 64, 0.4, 0);
    const Signal weaker = tone(9000, 8.25 / 64, 0.05, 2);
    for (std::size_t n = 0; n < sum.size(); ++n)
        sum[n] += weaker[n];
    write("two.wav", {sum, Signal(9000)});
    const RunResult result = run("two.wav");
    const std::vector<PeakRow> rows = peakRows(result.out);
    ASSERT_EQ(rows.size(), 2u) << result.out;
    EXPECT_NEAR(rows[0].frequency, 20.3 * 750, 75);
    EXPECT_NEAR(rows[1].frequency, 8.25 * 750, 75);
    EXPECT_NEAR(rows[1].level, 20 * std::log10(0.05), 0.3);
    result.found("(right) +silence");
}

// An impulse is in exactly the frames that cover it, whatever the hop and the place in the file.
TEST_F(Spectrogram, CutsFramesWithoutGaps)
{
    constexpr int samples = 700;
    for (const auto& [length, hop] : {std::pair(2, 1), {16, 8}, {17, 3}, {64, 64}, {5, 2}}) {
        for (const int place : {3, 259, 513, 690}) {
            SCOPED_TRACE(testing::Message() << length << ", hop " << hop << ", at " << place);
            Signal impulse(samples);
            impulse[static_cast<std::size_t>(place)] = 1;
            write("impulse.wav", {Signal(samples), impulse});
            const Analysis analysis = analysisOf("impulse.wav", length, hop, false);
            ASSERT_EQ(analysis.frames, (samples - length) / hop + 1);
            ASSERT_EQ(analysis.cellCount, analysis.frames);
            for (int frame = 0; frame < analysis.frames; ++frame) {
                const auto cell = static_cast<std::size_t>(frame * (length / 2 + 1));
                const bool covered = frame * hop <= place && place < frame * hop + length;
                EXPECT_EQ(analysis.panels[1].cells[cell] > 0, covered) << "frame " << frame;
                EXPECT_EQ(analysis.panels[0].cells[cell], 0);
            }
        }
    }
}

TEST_F(Spectrogram, DrawsEachToneAtItsFrequency)
{
    struct Case {
        std::string arguments;
        std::vector<Signal> channels;
        std::vector<double> heights; // of the tones, from 0 at the bottom to 1 at the top
    };
    const Case cases[] = {
        {"", {tone(48000, 20.0 / 64, 0.5, 0)}, {20.0 / 32}},
        {"-n 16", {tone(300, 3.0 / 16, 0.5, 0)}, {3.0 / 8}},
        {"", {tone(9000, 4.0 / 64, 0.5, 0), tone(9000, 28.0 / 64, 0.5, 0)}, {4.0 / 32, 28.0 / 32}},
        {"--iq", complexTone(9000, -16.0 / 64, 0.5), {0.25}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.channels.size() << " channels " << c.arguments);
        write("tone.wav", c.channels, SF_FORMAT_PCM_16);
        const Image image = pictureOf(c.arguments + " tone.wav");
        for (int i = 0; i < static_cast<int>(c.heights.size()); ++i) {
            const double height = c.heights[static_cast<std::size_t>(i)];
            const Rectangle area = panelArea(static_cast<int>(c.heights.size()), i);
            const int expected = area.bottom() - static_cast<int>(height * area.height);
            for (const int x : {area.left + 2, area.left + area.width / 2, area.right() - 3}) {
                EXPECT_NEAR(image.brightestRow(area, x), expected, 5);
                EXPECT_GT(image.brightness(x, expected), 400);
                const int away = height < 0.5 ? area.top + 2 : area.bottom() - 3;
                EXPECT_LT(image.brightness(x, away), 100);
            }
        }
    }
}

TEST_F(Spectrogram, DrawsABurstAtItsTime)
{
    for (const int samples : {1000, 200000}) { // wider and narrower than the picture
        Signal signal = tone(samples, 8.0 / 64, 0.5, 0);
        for (int n = 0; n < samples; ++n)
            if (n < samples * 3 / 4)
                signal[static_cast<std::size_t>(n)] = 0;
        write("burst.wav", {signal});
        const Image image = pictureOf("burst.wav");
        const Rectangle area = panelArea(1, 0);
        const int y = area.bottom() - area.height / 4;
        EXPECT_LT(image.brightness(area.left + area.width * 66 / 100, y), 100);
        EXPECT_GT(image.brightness(area.left + area.width * 79 / 100, y), 400);
    }
}

TEST_F(Spectrogram, RefusesBadInputInOneLine)
{
    write("good.wav", {tone(500, 0.1, 0.5, 0)});
    write("three.wav", {Signal(500), Signal(500), Signal(500)});
    write("short.wav", {Signal(63)});
    write("nan.wav", {Signal(500, NAN)});
    put("text.wav", "This is no audio.\n");
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"'two\nlines.wav'", "no such file"},
        {"text.wav", "cannot be read as audio"},
        {"short.wav", "63 samples are fewer than one frame"},
        {"nan.wav", "not finite"},
        {"three.wav", "3 channels"},
        {"--iq good.wav", "two channels"},
        {"-n 65 good.wav", "from 2 to 64"},
        {"-n 16x good.wav", "not '16x'"},
        {"-n 16 --hop 17 good.wav", "from 1 to 16"},
        {"--frobnicate good.wav", "unknown option '--frobnicate'"},
        {"", "no input file"},
        {"-o nowhere/out.png good.wav", "cannot write 'nowhere/out.png'"},
        {"-o pipe good.wav", "not a plain file"},
        {"-o good.wav good.wav", "is the input"},
    });
    EXPECT_EQ(content("good.wav"), goodBefore);
    expectOldFilesKept("-o out.png good.wav", 4, {"out.png"});
    expectHelp({"--length", "--hop", "--output", "--iq"});
}

} // namespace
