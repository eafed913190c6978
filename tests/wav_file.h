// Recordings for the tests of programs: made, written as WAV, and read back.
#pragma once

#include "program_test.h"

#include <numbers>
#include <random>
#include <sndfile.hh>

namespace rvn::tests
{

using Signal = std::vector<float>;

constexpr int sampleRate = 48000;

inline Signal noise(std::size_t samples, unsigned seed, float amplitude = 0.5f)
{
    std::minstd_rand generator(seed + 1);
    Signal signal(samples);
    for (float& sample : signal)
        sample = std::uniform_real_distribution(-amplitude, amplitude)(generator);
    return signal;
}

inline Signal tone(std::size_t samples, double turnsPerSample, double amplitude, double phase)
{
    Signal signal;
    for (std::size_t n = 0; n < samples; ++n)
        signal.push_back(static_cast<float>(
            amplitude *
            std::cos(2 * std::numbers::pi * turnsPerSample * static_cast<double>(n) + phase)));
    return signal;
}

// Programs that read recordings.
class SoundProgramTest : public ProgramTest
{
protected:
    using ProgramTest::ProgramTest;

    void write(const std::string& name, const std::vector<Signal>& channels,
               int format = SF_FORMAT_FLOAT, int rate = sampleRate) const
    {
        SndfileHandle file(path(name), SFM_WRITE, SF_FORMAT_WAV | format,
                           static_cast<int>(channels.size()), rate);
        Signal interleaved;
        for (std::size_t n = 0; n < channels[0].size(); ++n)
            for (const Signal& channel : channels)
                interleaved.push_back(channel[n]);
        const auto count = static_cast<sf_count_t>(interleaved.size());
        EXPECT_EQ(file.write(interleaved.data(), count), count);
    }

    // The channels that the program makes of these: out.wav, of 32-bit floats.
    std::vector<Signal> processed(const std::vector<Signal>& channels, const std::string& arguments)
    {
        write("in.wav", channels);
        result_ = run("in.wav -o out.wav " + arguments);
        EXPECT_EQ(result_.status, 0) << arguments << '\n' << result_.err;
        EXPECT_EQ(result_.err, "");
        SndfileHandle file(path("out.wav"));
        EXPECT_EQ(file.samplerate(), sampleRate);
        EXPECT_EQ(file.format(), SF_FORMAT_WAV | SF_FORMAT_FLOAT);
        EXPECT_EQ(file.channels(), static_cast<int>(channels.size()));
        Signal interleaved(channels.size() * static_cast<std::size_t>(file.frames()), NAN);
        file.read(interleaved.data(), static_cast<sf_count_t>(interleaved.size()));
        std::vector<Signal> output(channels.size());
        for (std::size_t i = 0; i < interleaved.size(); ++i)
            output[i % channels.size()].push_back(interleaved[i]);
        return output;
    }

    RunResult result_;
};

} // namespace rvn::tests
