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

class Spectrogram : public SoundProgramTest
{
protected:
    Spectrogram() : SoundProgramTest(SPECTROGRAM_PROGRAM) {}

    void analyse(const std::vector<Signal>& channels, const std::string& arguments,
                 int format = SF_FORMAT_FLOAT, int rate = sampleRate)
    {
        write("it's süß.wav", channels, format, rate);
        result_ = run("\"it's süß.wav\" " + arguments);
        EXPECT_EQ(std::to_string(result_.status) + result_.err, "0");
    }
    // Of the strongest peak.
    double frequency() const { return result_.number(" (-?[0-9.]+) Hz +[0-9.]+ Hz"); }
    double level() const { return result_.number("(-?[0-9.]+) dBFS"); }
};

TEST_F(Spectrogram, FindsTonesBetweenBins)
{
    for (const int length : {3, 4, 5, 6, 7, 8, 11, 16, 17, 23, 31, 32, 33, 47, 48, 59, 63, 64})
        for (const double part : {0.0, 0.03, 0.27, 0.5, 0.71, 0.98})
            for (const bool iq : {false, true}) {
                const double turns = (iq ? -part : part) / 2, binWidth = 48000.0 / length;
                const std::string arguments = (iq ? "--iq -n " : "-n ") + std::to_string(length);
                SCOPED_TRACE(arguments + ", turns " + std::to_string(turns));
                const std::size_t samples = 3 * static_cast<std::size_t>(length);
                std::vector<Signal> channels = {tone(samples, turns, 0.7, 17 * part)};
                if (iq)
                    channels.push_back(tone(samples, turns, 0.7, 17 * part - pi / 2));
                analyse(channels, arguments + " --hop " + std::to_string((length + 1) / 2));
                EXPECT_NEAR(frequency(), turns * sampleRate, 0.011 * binWidth);
                EXPECT_NEAR(result_.number("Hz +([0-9.]+) Hz"), binWidth, 1e-4 * binWidth);
                EXPECT_NEAR(level(), -3.098, 0.13);
                EXPECT_LT(result_.number("rms error ([-+.e0-9]+)"), 5e-7);
                EXPECT_GT(result_.number("rms error ([-+.e0-9]+)"), 1e-9); // binary32
            }
    Signal both = tone(50000, 20.3 / 64, 0.4, 0);
    for (std::size_t n = 0; const float sample : tone(50000, 8.25 / 64, 0.05, 2))
        both[n++] += sample;
    analyse({both, Signal(50000)}, "", SF_FORMAT_PCM_24);
    EXPECT_NEAR(frequency(), 20.3 * 750, 75);
    EXPECT_NEAR(result_.number("dBFS\n +left +([0-9.]+) Hz"), 8.25 * 750, 75);
    EXPECT_NEAR(result_.number("([-0-9.]+) dBFS\n +right"), -26.02, 0.3);
    EXPECT_EQ(result_.found("right +(\\w+)"), "silence");
    EXPECT_EQ(result_.number("([0-9]+) of 64 samples, Hann window"), (50000 - 64) / 32 + 1);
    result_.expectSpeed(1e6);
}

// Next to zero and to half the sample rate a tone nearly cancels its image in one of the two parts,
// and at zero only one of them is to be seen: neither what is no lone tone nor noise must get a
// huge level from the remainder.
TEST_F(Spectrogram, LevelsNearTheEndsOfTheSpectrumStayPossible)
{
    Signal step(8000), clicked = tone(8000, 5000.0 / sampleRate, 0.1, 0);
    std::fill(step.begin() + 4000, step.end(), 0.25f);
    std::fill(clicked.begin() + 4000, clicked.end(), 0.0f);
    clicked[6001] = 0.9f;
    clicked[6002] = -0.9f;
    analyse({step}, "", SF_FORMAT_PCM_16);
    EXPECT_NEAR(level(), -14, 2.1);
    analyse({clicked}, "", SF_FORMAT_PCM_16);
    EXPECT_NEAR(level(), -22, 2.1);
    for (const auto& [hertz, hiss] :
         {std::pair(0.0, 1e-5f), {2.0, 2e-3f}, {20.0, 2e-3f}, {sampleRate / 2 - 5.0, 2e-3f}}) {
        Signal hum = tone(sampleRate, hertz / sampleRate, 0.025, 0);
        for (std::size_t n = 0; const float sample : noise(hum.size(), 1, hiss))
            hum[n++] += sample;
        analyse({hum}, "", SF_FORMAT_PCM_16);
        EXPECT_NEAR(level(), -32.04, 0.5) << hertz;
    }
}

// An impulse is in exactly the frames that cover it, whatever the hop and the place in the file.
TEST_F(Spectrogram, CutsFramesWithoutGaps)
{
    for (const auto& [length, hop] : {std::pair(2, 1), {16, 8}, {17, 3}, {64, 64}, {5, 2}})
        for (const int place : {3, 159, 290}) {
            Signal impulse(300);
            impulse[static_cast<std::size_t>(place)] = 1;
            write("in.wav", {Signal(300), impulse});
            run("in.wav -n " + std::to_string(length) + " --hop " + std::to_string(hop));
            const std::vector<PanelLevels> drawn = panels();
            for (int first = 0; first <= 300 - length; first += hop) {
                const double middle = (first + length / 2.0) / 300;
                EXPECT_EQ(drawn.at(1).at(middle, 0.5) > -190,
                          first <= place && place < first + length)
                    << length << ' ' << first;
                EXPECT_EQ(drawn[0].at(middle, 0.5), -200);
            }
        }
}

// Tones in the last quarter, in more and in fewer frames than the picture has columns; then gnuplot
// itself, on the picture as a person sees it: low frequencies at the bottom, time rightwards.
TEST_F(Spectrogram, DrawsTonesAtTheirFrequencyAndTime)
{
    const struct {
        int rate;
        std::string arguments;
        std::vector<double> turns; // of each panel's tone
        std::vector<std::string> axes;
    } cases[] = {
        {45000000, "", {0.3125}, {"us'", "MHz'", "xrange [0:200]\nset yrange [0:22.5]\n"}},
        {36000, "-n 16", {0.1875}, {"ms'", "kHz'", "xrange [0:250]\nset yrange [0:18]\n"}},
        {3000, "-n 31 --iq", {10.0 / 31}, {"in s'", "in Hz'", "yrange [-1500:1500]\n"}},
        {3000, "--hop 64", {0.0625, 0.4375}, {"xrange [0:3]\n", "'it''s süß.wav'", "[-90:0]\n"}},
    };
    std::vector<Signal> channels;
    for (const auto& c : cases) {
        const bool iq = c.arguments.ends_with("--iq");
        channels.clear();
        for (const double turns : c.turns)
            channels.push_back(tone(9000, turns, 0.5, 0));
        if (iq)
            channels.push_back(tone(9000, c.turns[0], 0.5, -pi / 2));
        for (Signal& channel : channels)
            std::fill_n(channel.begin(), 6750, 0.0f);
        analyse(channels, c.arguments, SF_FORMAT_FLOAT, c.rate);
        const std::vector<PanelLevels> drawn = panels();
        ASSERT_EQ(drawn.size(), c.turns.size());
        for (std::size_t i = 0; i < drawn.size(); ++i) {
            const double height = iq ? 0.5 + c.turns[i] : 2 * c.turns[i];
            EXPECT_LT(drawn[i].at(0.66, height), -80);
            for (const double time : {0.82, 0.99}) {
                EXPECT_NEAR(drawn[i].at(time, height), -6.02, 0.1);
                EXPECT_LT(drawn[i].at(time, height < 0.5 ? 0.95 : 0.05), -80);
            }
        }
        for (const std::string& words : c.axes)
            EXPECT_NE(script().find(words), std::string::npos) << words;
    }
    setGnuplot("");
    analyse({channels[0]}, "-o drawn.png");
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&png, path("drawn.png").c_str())) << png.message;
    png.format = PNG_FORMAT_GRAY;
    std::vector<std::uint8_t> grey(PNG_IMAGE_SIZE(png));
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, grey.data(), 0, nullptr));
    EXPECT_EQ(result_.number("picture .*, ([0-9]+) x"), png.width);
    // The panel is 800 x 400 pixels, at 84 from the left and the top.
    const auto at = [&](unsigned x, unsigned y) { return grey[(84 + y) * png.width + 84 + x]; };
    EXPECT_GT(at(700, 350), 190);
    EXPECT_LT(at(200, 350), 20);
    EXPECT_LT(at(700, 50), 20);
}

TEST_F(Spectrogram, RefusesBadInputInOneLine)
{
    write("good.wav", {tone(500, 0.1, 0.5, 0)});
    write("short.wav", {Signal(1)});
    write("three.wav", {Signal(500), Signal(500), Signal(500)});
    write("nan.wav", {Signal(500, NAN)});
    put("empty.wav", "");
    put("text.wav", "This is no audio.\n");
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"'two\nlines.wav'", "no such file"},
        {"text.wav", "cannot be read as audio"},
        {"empty.wav", "is empty"},
        {"nan.wav", "not finite"},
        {"three.wav", "3 channels"},
        {"short.wav", "1 sample, fewer than one frame of 64"},
        {"--iq good.wav", "two channels"},
        {"-n 65 good.wav", "from 2 to 64"},
        {"-n 16 --hop 17 good.wav", "from 1 to 16"},
        {"--frobnicate good.wav", "--frobnicate"},
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
    expectOldFilesKept("-o out.png good.wav", 4, {"out.png"});
    expectHelp({"--length", "--hop", "--output", "--iq"});
}

} // namespace
