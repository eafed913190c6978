// spectrogram_test.cpp - the spectrogram example does its job on real files: it finds tones between
// the bins, draws them where they are, and refuses bad input in one line.
//
// SPECTROGRAM_PROGRAM is the program's path.
#include "wav_file.h"

#include <algorithm>
#include <png.h>
#include <sys/stat.h>

namespace
{

using namespace rvn::tests;
using std::numbers::pi;

// The two parts of amplitude exp(2 pi i turns n).
std::vector<Signal> complexTone(std::size_t samples, double turns, double amplitude)
{
    return {tone(samples, turns, amplitude, 0), tone(samples, turns, amplitude, -pi / 2)};
}

double decibels(double amplitude)
{
    return 20 * std::log10(amplitude);
}

struct PeakRow {
    std::string signal;
    double frequency, binWidth, level;
};

class Spectrogram : public SoundProgramTest
{
protected:
    Spectrogram() : SoundProgramTest(SPECTROGRAM_PROGRAM) {}

    // The strongest frequencies of a recording.
    std::vector<PeakRow> peaks(const std::vector<Signal>& channels, const std::string& arguments,
                               int format = SF_FORMAT_FLOAT)
    {
        write("in.wav", channels, format);
        result_ = run("in.wav " + arguments);
        EXPECT_EQ(result_.status, 0) << result_.err;
        EXPECT_EQ(result_.err, "");
        const rvn::tests::Pattern row("  ([^ ]+) +(-?[0-9.]+) Hz +([0-9.]+) Hz +(-?[0-9.]+) dBFS");
        std::vector<PeakRow> rows;
        std::istringstream lines(result_.out);
        for (std::string line; std::getline(lines, line);)
            if (const auto found = row.find(line); !found.empty())
                rows.push_back(
                    {found[1], std::stod(found[2]), std::stod(found[3]), std::stod(found[4])});
        return rows;
    }
};

TEST_F(Spectrogram, FindsTonesBetweenBins)
{
    for (const int length : {3, 4, 5, 6, 7, 8, 11, 16, 17, 23, 31, 32, 33, 47, 48, 59, 63, 64})
        for (const double part : {0.0, 0.03, 0.27, 0.5, 0.71, 0.98})
            for (const bool iq : {false, true}) {
                const double bin = part * length / 2, turns = bin / length;
                SCOPED_TRACE(testing::Message() << length << " samples, bin " << bin);
                const std::size_t samples = 3 * static_cast<std::size_t>(length);
                const std::string arguments =
                    " -n " + std::to_string(length) + " --hop " + std::to_string((length + 1) / 2);
                const std::vector<PeakRow> rows =
                    iq ? peaks(complexTone(samples, -turns, 0.7), "--iq" + arguments)
                       : peaks({tone(samples, turns, 0.7, 17 * part)}, arguments);
                ASSERT_FALSE(rows.empty()) << result_.out;
                const double binWidth = static_cast<double>(sampleRate) / length;
                EXPECT_EQ(rows[0].signal, iq ? "I/Q" : "mono");
                EXPECT_NEAR(rows[0].frequency, (iq ? -bin : bin) * binWidth, 0.011 * binWidth);
                EXPECT_NEAR(rows[0].binWidth, binWidth, 1e-4 * binWidth);
                EXPECT_NEAR(rows[0].level, decibels(0.7), 0.13);
                EXPECT_LT(result_.number("rms error ([-+.e0-9]+)"), 5e-7);
                EXPECT_GT(result_.number("rms error ([-+.e0-9]+)"), 1e-9); // binary32
            }
    peaks({tone(50000, 0.1, 0.5, 0)}, "", SF_FORMAT_PCM_24);
    EXPECT_EQ(result_.number("([0-9]+) of 64 samples, Hann window"), (50000 - 64) / 32 + 1);
    result_.expectSpeed(1e6);
}

// Next to zero and to half the sample rate a tone nearly cancels its image in one of the two parts,
// and at zero only one of them is to be seen: neither what is no lone tone nor noise must get a
// huge level from the remainder.
TEST_F(Spectrogram, LevelsNearTheEndsOfTheSpectrumStayPossible)
{
    const auto loudest = [&](const Signal& signal) {
        const std::vector<PeakRow> rows = peaks({signal}, "", SF_FORMAT_PCM_16);
        return rows.empty() ? NAN : std::ranges::max_element(rows, {}, &PeakRow::level)->level;
    };
    Signal step(8000);
    std::fill(step.begin() + 4000, step.end(), 0.25f);
    EXPECT_NEAR(loudest(step), decibels(0.25) - 2, 2.1);

    Signal clicked = tone(8000, 5000.0 / sampleRate, 0.1, 0);
    std::fill(clicked.begin() + 4000, clicked.end(), 0.0f);
    clicked[6001] = 0.9f;
    clicked[6002] = -0.9f;
    EXPECT_NEAR(loudest(clicked), -22, 2.1);

    for (const auto& [hertz, level] :
         {std::pair(0.0, 1e-5f), {2.0, 2e-3f}, {20.0, 2e-3f}, {sampleRate / 2 - 5.0, 2e-3f}}) {
        Signal hum = tone(sampleRate, hertz / sampleRate, 0.025, 0);
        const Signal hiss = noise(hum.size(), 1, level);
        for (std::size_t n = 0; n < hum.size(); ++n)
            hum[n] += hiss[n];
        EXPECT_NEAR(loudest(hum), decibels(0.025), 0.5) << hertz;
    }
}

TEST_F(Spectrogram, ListsSeveralPeaksStrongestFirstAndSilenceAsSuch)
{
    Signal sum = tone(9000, 20.3 / 64, 0.4, 0);
    const Signal weaker = tone(9000, 8.25 / 64, 0.05, 2);
    for (std::size_t n = 0; n < sum.size(); ++n)
        sum[n] += weaker[n];
    const std::vector<PeakRow> rows = peaks({sum, Signal(9000)}, "");
    ASSERT_EQ(rows.size(), 2u) << result_.out;
    EXPECT_NEAR(rows[0].frequency, 20.3 * 750, 75);
    EXPECT_NEAR(rows[1].frequency, 8.25 * 750, 75);
    EXPECT_NEAR(rows[1].level, decibels(0.05), 0.3);
    EXPECT_EQ(result_.found("right +(\\w+)"), "silence");
}

// An impulse is in exactly the frames that cover it, whatever the hop and the place in the file.
TEST_F(Spectrogram, CutsFramesWithoutGaps)
{
    constexpr int samples = 300;
    for (const auto& [length, hop] : {std::pair(2, 1), {16, 8}, {17, 3}, {64, 64}, {5, 2}})
        for (const int place : {3, 159, 290}) {
            Signal impulse(samples);
            impulse[static_cast<std::size_t>(place)] = 1;
            peaks({Signal(samples), impulse},
                  "-n " + std::to_string(length) + " --hop " + std::to_string(hop));
            const std::vector<PanelLevels> drawn = panels();
            ASSERT_EQ(drawn.size(), 2u);
            for (int frame = 0; frame <= (samples - length) / hop; ++frame) {
                const double middle = (frame * hop + length / 2.0) / samples;
                const bool isCovered = frame * hop <= place && place < frame * hop + length;
                EXPECT_EQ(drawn[1].at(middle, 0.5) > -190, isCovered) << length << ' ' << frame;
                EXPECT_EQ(drawn[0].at(middle, 0.5), -200);
            }
        }
}

TEST_F(Spectrogram, DrawsTonesAtTheirFrequencyAndTime)
{
    const struct {
        std::string arguments;
        std::vector<Signal> channels;
        std::vector<double> heights; // of the tones, from 0 at the bottom to 1 at the top
    } cases[] = {
        {"", {tone(48000, 20.0 / 64, 0.5, 0)}, {20.0 / 32}},
        {"-n 16", {tone(300, 3.0 / 16, 0.5, 0)}, {3.0 / 8}},
        {"", {tone(9000, 4.0 / 64, 0.5, 0), tone(9000, 28.0 / 64, 0.5, 0)}, {4.0 / 32, 28.0 / 32}},
        {"--iq", complexTone(9000, -16.0 / 64, 0.5), {0.25}},
        {"--iq -n 31", complexTone(9000, 10.0 / 31, 0.5), {0.5 + 10.0 / 31}},
    };
    for (const auto& c : cases) {
        peaks(c.channels, c.arguments);
        const std::vector<PanelLevels> drawn = panels();
        ASSERT_EQ(drawn.size(), c.heights.size());
        for (std::size_t i = 0; i < drawn.size(); ++i)
            for (const double time : {0.01, 0.5, 0.99}) {
                EXPECT_NEAR(drawn[i].at(time, c.heights[i]), decibels(0.5), 0.1);
                EXPECT_LT(drawn[i].at(time, c.heights[i] < 0.5 ? 0.95 : 0.05), -80);
            }
    }
    for (const std::size_t samples : {1000u, 200000u}) { // wider and narrower than the picture
        Signal burst = tone(samples, 8.0 / 64, 0.5, 0);
        std::fill_n(burst.begin(), samples * 3 / 4, 0.0f);
        peaks({burst}, "");
        EXPECT_LT(panels().at(0).at(0.66, 0.25), -80);
        EXPECT_GT(panels().at(0).at(0.79, 0.25), -10);
    }
}

// gnuplot itself, on the picture as a person sees it: low frequencies at the bottom, time
// rightwards.
TEST_F(Spectrogram, GnuplotDrawsWhatTheScriptSays)
{
    setGnuplot("");
    Signal burst = tone(48000, 4.0 / 64, 0.9, 0);
    std::fill_n(burst.begin(), 24000, 0.0f);
    peaks({burst}, "-o drawn.png");
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&png, path("drawn.png").c_str())) << png.message;
    png.format = PNG_FORMAT_GRAY;
    std::vector<std::uint8_t> grey(PNG_IMAGE_SIZE(png));
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, grey.data(), 0, nullptr));
    EXPECT_EQ(result_.found("picture .*, (.*) pixels"),
              std::to_string(png.width) + " x " + std::to_string(png.height));
    // The panel is 800 x 400 pixels, at 84 from the left and the top.
    const auto at = [&](double x, double y) {
        return grey[static_cast<std::size_t>(84 + 400 * (1 - y)) * png.width +
                    static_cast<std::size_t>(84 + 800 * x)];
    };
    EXPECT_GT(at(0.75, 0.125), 200);
    EXPECT_LT(at(0.25, 0.125), 20);
    EXPECT_LT(at(0.75, 0.875), 20);
}

TEST_F(Spectrogram, AxesHaveTheirUnitsAndTitlesTheirNames)
{
    const struct {
        int samples, rate;
        std::string arguments, axes[4];
    } cases[] = {
        {48000, 48000, "", {"time in s'", "[0:1]", "frequency in kHz'", "[0:24]"}},
        {600, 48000, "", {"time in ms'", "[0:12.5]", "frequency in kHz'", "[0:24]"}},
        {12, 48000, "-n 8", {"time in us'", "[0:250]", "frequency in kHz'", "[0:24]"}},
        {500, 2000, "", {"time in ms'", "[0:250]", "frequency in Hz'", "[0:1000]"}},
        {4000, 16000, "", {"time in ms'", "[0:250]", "frequency in kHz'", "[0:8]"}},
        {5000, 5000000, "", {"time in ms'", "[0:1]", "frequency in MHz'", "[0:2.5]"}},
    };
    for (const auto& c : cases) {
        write("it's süß.wav", {Signal(static_cast<std::size_t>(c.samples), 0.1f)}, SF_FORMAT_FLOAT,
              c.rate);
        ASSERT_EQ(run("\"it's süß.wav\" " + c.arguments).status, 0);
        const std::string text = script();
        EXPECT_NE(text.find(c.axes[0]), std::string::npos) << c.axes[0];
        EXPECT_NE(text.find("xrange " + c.axes[1] + "\n"), std::string::npos) << c.axes[1];
        EXPECT_NE(text.find(c.axes[2]), std::string::npos) << c.axes[2];
        EXPECT_NE(text.find("yrange " + c.axes[3] + "\n"), std::string::npos) << c.axes[3];
        EXPECT_NE(text.find("'it''s süß.wav'"), std::string::npos);
        EXPECT_NE(text.find("cbrange [-90:0]"), std::string::npos);
    }
}

TEST_F(Spectrogram, RefusesBadInputInOneLine)
{
    write("good.wav", {tone(500, 0.1, 0.5, 0)});
    write("three.wav", {Signal(500), Signal(500), Signal(500)});
    write("short.wav", {Signal(1)});
    write("nan.wav", {Signal(500, NAN)});
    put("text.wav", "This is no audio.\n");
    put("empty.wav", "");
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"'two\nlines.wav'", "no such file"},
        {"text.wav", "cannot be read as audio"},
        {"empty.wav", "is empty"},
        {"short.wav", "1 sample, fewer than one frame of 64"},
        {"nan.wav", "not finite"},
        {"three.wav", "3 channels"},
        {"--iq good.wav", "two channels"},
        {"-n 65 good.wav", "from 2 to 64"},
        {"-n 16x good.wav", "not '16x'"},
        {"-n 16 --hop 17 good.wav", "from 1 to 16"},
        {"--hop '' good.wav", "--hop"},
        {"--frobnicate good.wav", "--frobnicate"},
        {"", "AUDIO is required"},
        {"good.wav good.wav", "not expected: good.wav"},
        {"-o nowhere/out.png good.wav", "cannot write 'nowhere/out.png'"},
        {"-o pipe good.wav", "not a plain file"},
        {"-o good.wav good.wav", "is the input"},
    });
    setGnuplot("echo 'line 0: a bad line' >&2; exit 1");
    expectRefusals({{"-o out.png good.wav", "gnuplot failed: line 0: a bad line"}});
    setGnuplot("echo no picture");
    expectRefusals({{"-o out.png good.wav", "cannot write 'out.png'"}});
    EXPECT_EQ(content("good.wav"), goodBefore);
    setGnuplot("");
    const RunResult without = run("good.wav -o out.png", "PATH=; export PATH;");
    EXPECT_EQ(without.status, 1);
    EXPECT_NE(without.err.find("gnuplot failed"), std::string::npos) << without.err;
    expectOldFilesKept("-o out.png good.wav", 4, {"out.png"});
    expectHelp({"--length", "--hop", "--output", "--iq"});
}

} // namespace
