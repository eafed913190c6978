// Recordings for the tests of programs: written as WAV, and read back.
#pragma once

#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace rvn::tests
{

inline std::vector<float> noise(std::size_t samples, unsigned seed, float amplitude = 0.5f)
{
    std::minstd_rand generator(seed + 1);
    std::vector<float> signal(samples);
    for (float& sample : signal)
        sample = std::uniform_real_distribution(-amplitude, amplitude)(generator);
    return signal;
}

template <typename Sample>
void writeWav(const std::string& path, const std::vector<std::vector<Sample>>& channels,
              int sampleRate, int format = SF_FORMAT_FLOAT)
{
    SF_INFO info = {};
    info.samplerate = sampleRate;
    info.channels = static_cast<int>(channels.size());
    info.format = SF_FORMAT_WAV | format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    ASSERT_NE(file, nullptr);
    std::vector<double> interleaved;
    for (std::size_t n = 0; n < channels[0].size(); ++n)
        for (const std::vector<Sample>& channel : channels)
            interleaved.push_back(channel[n]);
    const auto count = static_cast<sf_count_t>(interleaved.size());
    EXPECT_EQ(sf_write_double(file, interleaved.data(), count), count);
    sf_close(file);
}

struct Recording {
    SF_INFO info = {};
    std::vector<std::vector<float>> channels;
};

inline Recording readWav(const std::string& path)
{
    Recording recording;
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &recording.info);
    if (!file) {
        ADD_FAILURE() << path << " cannot be read";
        return {};
    }
    const auto channels = static_cast<std::size_t>(recording.info.channels);
    recording.channels.resize(channels);
    std::vector<float> interleaved(channels * static_cast<std::size_t>(recording.info.frames), NAN);
    sf_readf_float(file, interleaved.data(), recording.info.frames);
    for (std::size_t i = 0; i < interleaved.size(); ++i)
        recording.channels[i % channels].push_back(interleaved[i]);
    sf_close(file);
    return recording;
}

} // namespace rvn::tests
