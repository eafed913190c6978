// spectrogram_test.cpp - the spectrogram example does its job on real files: it finds tones between
// the bins, draws them where they are, and refuses bad input in one line.
//
// Most tests run the built program on audio files written here and read its output and its picture
// back; the denser tables call the program's parts. SPECTROGRAM_PROGRAM is the program's path.
#include "analysis.h"
#include "colors.h"
#include "font.h"
#include "level_plot.h"
#include "peaks.h"
#include "ticks.h"

#include "image_file.h"
#include "program_test.h"
#include "wav_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <regex>
#include <set>
#include <sys/stat.h>

namespace
{

using namespace examples;
using namespace spectrogram;
namespace fs = std::filesystem;
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

    // Reads a picture back, and expects the size that was announced.
    Image picture(const std::string& name, const RunResult& result) const
    {
        const Image image = rvn::tests::readImage(path(name));
        const std::string announced = name + ", " + std::to_string(image.width) + " x " +
                                      std::to_string(image.height) + " pixels";
        EXPECT_NE(result.out.find(announced), std::string::npos) << result.out;
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
    static const std::regex row(R"(  (\S+) +(-?[\d.]+) Hz +([\d.]+) Hz +(-?[\d.]+) dBFS)");
    std::vector<PeakRow> rows;
    for (std::sregex_iterator i(out.begin(), out.end(), row), end; i != end; ++i)
        rows.push_back({(*i)[1], std::stod((*i)[2]), std::stod((*i)[3]), std::stod((*i)[4])});
    return rows;
}

double roundTrip(const std::string& out)
{
    std::smatch match;
    return std::regex_search(out, match, std::regex("rms error ([-+.e0-9]+)")) ? std::stod(match[1])
                                                                               : NAN;
}

TEST_F(Spectrogram, PrintsTheToneWithinATenthOfABin)
{
    struct Case {
        int length;
        double bin;
        int format;
        bool iq;
    };
    const Case cases[] = {
        {64, 10.0, SF_FORMAT_PCM_16, false}, {64, 10.5, SF_FORMAT_PCM_24, false},
        {64, 0.64, SF_FORMAT_PCM_16, false}, {64, 31.7, SF_FORMAT_FLOAT, false},
        {31, 7.49, SF_FORMAT_PCM_16, false}, {31, 15.3, SF_FORMAT_PCM_24, false},
        {17, 2.51, SF_FORMAT_FLOAT, false},  {17, 1.0, SF_FORMAT_PCM_16, false},
        {16, 3.49, SF_FORMAT_PCM_16, false}, {5, 1.2, SF_FORMAT_FLOAT, false},
        {64, -13.5, SF_FORMAT_PCM_16, true}, {31, -15.2, SF_FORMAT_PCM_24, true},
        {17, 8.4, SF_FORMAT_FLOAT, true},    {16, -0.51, SF_FORMAT_PCM_16, true},
    };
    for (const Case& c : cases) {
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
        EXPECT_LT(roundTrip(result.out), 5e-7);
        EXPECT_GT(roundTrip(result.out), 1e-9); // single precision is not exact
        EXPECT_TRUE(std::regex_search(result.out, std::regex("[1-9].* million frames per second")));
        const std::string cut = std::to_string((5000 - c.length) / (c.length / 2) + 1) + " of " +
                                std::to_string(c.length) + " samples, Hann window, hop " +
                                std::to_string(c.length / 2) + "\n";
        EXPECT_NE(result.out.find(cut), std::string::npos) << result.out;
        picture("tone.png", result);
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

// Near zero only one of a tone's two parts is to be seen; noise in the other one must not count.
TEST_F(Spectrogram, NoiseDoesNotSpoilTheLevelOfAConstant)
{
    std::minstd_rand random;
    for (int i = 0; i < 8; ++i) {
        Signal signal(9000, 0.5);
        for (double& sample : signal)
            sample += 1e-4 * std::uniform_real_distribution(-1.0, 1.0)(random);
        write("constant.wav", {signal}, SF_FORMAT_PCM_16);
        const std::vector<PeakRow> rows = peakRows(run("constant.wav").out);
        ASSERT_FALSE(rows.empty());
        EXPECT_NEAR(rows[0].frequency, 0, 75);
        EXPECT_NEAR(rows[0].level, 20 * std::log10(0.5), 0.1);
    }
}

// Next to zero and to half the sample rate a tone nearly cancels its image in one of the two parts;
// what is no lone tone must not get a huge level from the remainder.
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

    Signal impulse(4000);
    impulse[2000] = 32767 / 32768.0;
    EXPECT_LT(loudest(peaksOf(impulse)), 20 * std::log10(std::sqrt(2 / 4000.0)));

    std::minstd_rand random;
    for (const double hertz : {2.0, 5.0, 20.0, rate / 2 - 5.0}) {
        Signal hum = tone(rate, hertz / rate, 800 / 32768.0, 0);
        for (double& sample : hum)
            sample += std::normal_distribution(0.0, 1e-3)(random);
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
    EXPECT_TRUE(std::regex_search(result.out, std::regex("right +silence")));
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
        const RunResult result = run(c.arguments + " tone.wav -o drawn.png");
        ASSERT_EQ(result.status, 0) << result.err;
        const Image image = picture("drawn.png", result);
        ASSERT_EQ(image.width, pictureWidth);
        std::set<std::array<std::uint8_t, 3>> colors;
        for (std::size_t i = 0; i < image.rgb.size(); i += 3)
            colors.insert({image.rgb[i], image.rgb[i + 1], image.rgb[i + 2]});
        EXPECT_GT(colors.size(), 30u);
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
        const Image image = picture("burst.png", run("burst.wav"));
        ASSERT_EQ(image.width, pictureWidth);
        const Rectangle area = panelArea(1, 0);
        const int y = area.bottom() - area.height / 4;
        EXPECT_LT(image.brightness(area.left + area.width * 66 / 100, y), 100);
        EXPECT_GT(image.brightness(area.left + area.width * 79 / 100, y), 400);
    }
}

// A tone of -6 dB has the colour the legend has at -6 dB, and the axes bear ticks at round numbers.
TEST_F(Spectrogram, DrawsLevelsAndAxesToScale)
{
    const Rectangle area = panelArea(1, 0);
    const Rectangle legend = legendArea(1);
    const double place = 1 + 20 * std::log10(0.5) / legendRange;
    const Color expected = levelColor(place);
    Image image;
    for (const int bin : {0, 20}) {
        write("tone.wav", {tone(48000, bin / 64.0, 0.5, 0)});
        image = picture("tone.png", run("tone.wav"));
        ASSERT_EQ(image.width, pictureWidth);
        const int row = area.bottom() - 1 - area.height * bin / 32;
        const int legendRow = legend.bottom() - static_cast<int>(place * legend.height);
        for (const auto& [x, y] : {std::pair(area.left + 400, row), {legend.left + 8, legendRow}}) {
            const std::uint8_t* rgb = &image.rgb[3 * static_cast<std::size_t>(y * image.width + x)];
            EXPECT_NEAR(rgb[0], expected.red, 8) << "bin " << bin;
            EXPECT_NEAR(rgb[1], expected.green, 8) << "bin " << bin;
            EXPECT_NEAR(rgb[2], expected.blue, 8) << "bin " << bin;
        }
    }
    for (int kilohertz = 0; kilohertz < 24; ++kilohertz) {
        const int y = area.bottom() - static_cast<int>(std::lround(area.height * kilohertz / 24.0));
        EXPECT_EQ(image.brightness(area.left - 4, y) < 200, kilohertz % 5 == 0) << kilohertz;
    }
    for (int tenth = 0; tenth <= 10; ++tenth) { // of the signal's second
        const int x = area.left + area.width * tenth / 10;
        EXPECT_EQ(image.brightness(x, area.bottom() + 4) < 200, tenth % 2 == 0) << tenth;
    }
}

TEST(SpectrogramText, HasRoundTicksAndDistinctGlyphs)
{
    const struct {
        double low, high;
        int most;
        std::vector<std::string> labels;
    } cases[] = {
        {0, 24, 8, {"0", "5", "10", "15", "20"}},
        {0, 1.428, 8, {"0.0", "0.2", "0.4", "0.6", "0.8", "1.0", "1.2", "1.4"}},
        {-80, 0, 5, {"-80", "-60", "-40", "-20", "0"}},
        {-0.0125, 0.0125, 4, {"-0.01", "0.00", "0.01"}},
        {0, 22.05, 3, {"0", "10", "20"}},
    };
    for (const auto& c : cases) {
        const Ticks ticks = roundTicks(c.low, c.high, c.most);
        std::vector<std::string> labels;
        for (const double value : ticks.values)
            labels.push_back(fixedText(value, ticks.decimals));
        EXPECT_EQ(labels, c.labels);
    }
    std::set<std::string> glyphs;
    for (char character = ' '; character <= '~'; ++character) {
        std::string glyph;
        for (int i = 0; i < glyphWidth * glyphHeight; ++i)
            glyph += glyphPixel(character, i % glyphWidth, i / glyphWidth) ? '#' : ' ';
        EXPECT_EQ(glyph.find('#') == std::string::npos, character == ' ') << character;
        EXPECT_TRUE(glyphs.insert(glyph).second) << character;
    }
}

TEST_F(Spectrogram, RefusesBadInputInOneLine)
{
    write("good.wav", {tone(500, 0.1, 0.5, 0)});
    write("stereo.wav", {Signal(500), Signal(500)});
    write("three.wav", {Signal(500), Signal(500), Signal(500)});
    write("empty.wav", {Signal()});
    write("short.wav", {Signal(63)});
    write("single.wav", {Signal(1)});
    write("nan.wav", {Signal(500, NAN)});
    std::ofstream(path("text.wav")) << "This is no audio.\n";
    fs::create_directory(path("folder"));
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"missing.wav", "no such file"},
        {"'two\nlines.wav'", "no such file"},
        {"folder", "directory"},
        {"text.wav", "cannot be read as audio"},
        {"empty.wav", "no samples"},
        {"short.wav", "63 samples are fewer than one frame"},
        {"single.wav", "1 sample is fewer than one frame"},
        {"nan.wav", "not finite"},
        {"three.wav", "3 channels"},
        {"--iq good.wav", "two channels"},
        {"-n 1 good.wav", "from 2 to 64, not '1'"},
        {"-n 65 good.wav", "from 2 to 64"},
        {"-n -8 good.wav", "from 2 to 64"},
        {"-n 16x good.wav", "not '16x'"},
        {"-n '' good.wav", "whole number"},
        {"-n 99999999999999999999 good.wav", "from 2 to 64"},
        {"--hop 0 good.wav", "from 1 to 64"},
        {"-n 16 --hop 17 good.wav", "from 1 to 16"},
        {"--frobnicate good.wav", "unknown option '--frobnicate'"},
        {"-x good.wav", "unknown option '-x'"},
        {"good.wav -n", "'-n' needs a value"},
        {"good.wav stereo.wav", "one input file"},
        {"", "no input file"},
        {"-o '' good.wav", "empty"},
        {"-o nowhere/out.png good.wav", "cannot write 'nowhere/out.png'"},
        {"-o folder good.wav", "not a plain file"},
        {"-o pipe good.wav", "not a plain file"},
        {"-o good.wav good.wav", "is the input"},
    });
    EXPECT_EQ(content("good.wav"), goodBefore);
}

TEST_F(Spectrogram, PrintsFileNamesInOneLine)
{
    write("two\nlines.wav", {tone(500, 0.1, 0.5, 0)});
    const RunResult result = run("'two\nlines.wav' -o 'bell\a.png'");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out.find("audio        two?lines.wav: "), 0u) << result.out;
    EXPECT_NE(result.out.find("picture      bell?.png, "), std::string::npos) << result.out;
    EXPECT_TRUE(fs::exists(path("bell\a.png")));
}

TEST_F(Spectrogram, KeepsTheOldPictureWhenTheNewOneFails)
{
    write("good.wav", {tone(500, 0.1, 0.5, 0)});
    std::ofstream(path("out.png")) << "old";
    EXPECT_NE(run("-o out.png missing.wav").status, 0);
    // A limit on the size of files stops the picture half-way.
    const RunResult full = run("-o out.png good.wav", "trap '' XFSZ; ulimit -f 4;");
    EXPECT_EQ(full.status, 1) << full.err;
    EXPECT_NE(full.err.find("cannot write 'out.png'"), std::string::npos) << full.err;
    EXPECT_EQ(content("out.png"), "old");
    EXPECT_EQ(files(), 4);
    EXPECT_EQ(run("-o out.png good.wav").status, 0);
    EXPECT_NE(content("out.png"), "old");
}

TEST_F(Spectrogram, HelpsOnRequest)
{
    expectHelp({"--length", "--hop", "--output", "--iq"});
}

} // namespace
