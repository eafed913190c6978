// Tests of a program that makes one recording of another.
#pragma once

#include "program_test.h"
#include "wav_file.h"

namespace rvn::tests
{

class SoundProgramTest : public ProgramTest
{
protected:
    using Signal = std::vector<float>;

    static constexpr int rate = 48000;

    using ProgramTest::ProgramTest;

    void write(const std::string& name, const std::vector<Signal>& channels) const
    {
        writeWav(path(name), channels, rate);
    }

    // The channels that the program makes of these: out.wav, of 32-bit floats.
    std::vector<Signal> processed(const std::vector<Signal>& channels, const std::string& arguments)
    {
        write("in.wav", channels);
        result_ = run("in.wav -o out.wav " + arguments);
        EXPECT_EQ(result_.status, 0) << arguments << '\n' << result_.err;
        EXPECT_EQ(result_.err, "");
        const Recording recording = readWav(path("out.wav"));
        EXPECT_EQ(recording.info.samplerate, rate);
        EXPECT_EQ(recording.info.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
        EXPECT_EQ(recording.channels.size(), channels.size());
        return recording.channels;
    }

    RunResult result_;
};

} // namespace rvn::tests
