// sound.cpp - channels apart in memory, interleaved in files; a batch at a time between the two.
#include "sound.h"

#include "audio.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <sndfile.h>
#include <span>

namespace examples
{
namespace
{

constexpr std::size_t batchSamples = std::size_t{1} << 14;

// The sizes in a WAV file are 32-bit numbers, of which its header needs a little.
constexpr std::uint64_t largestWav = 0xffff0000u;

} // namespace

float Sound::peak() const
{
    float largest = 0;
    for (const std::vector<float>& channel : channels)
        for (const float sample : channel)
            largest = std::max(largest, std::abs(sample));
    return largest;
}

Sound readSound(const std::string& path, int mostChannels)
{
    AudioFile file(path, mostChannels);
    const auto channels = static_cast<std::size_t>(file.channels());
    Sound sound = {file.sampleRate(), std::vector<std::vector<float>>(channels)};
    std::vector<float> batch;
    for (auto left = static_cast<std::uint64_t>(file.samples()); left > 0;) {
        const std::uint64_t count = std::min<std::uint64_t>(left, batchSamples);
        batch.resize(count * channels);
        file.read(batch);
        for (std::size_t i = 0; i < batch.size(); ++i)
            sound.channels[i % channels].push_back(batch[i]);
        left -= count;
    }
    return sound;
}

void writeSound(PartFile& part, const Sound& sound)
{
    const std::size_t channels = sound.channels.size();
    if (sound.samples() > largestWav / (sizeof(float) * channels))
        part.fail("longer than a WAV file can be");

    SF_INFO info = {};
    info.samplerate = sound.sampleRate;
    info.channels = static_cast<int>(channels);
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    const auto close = [](SNDFILE* file) { sf_close(file); };
    std::unique_ptr<SNDFILE, decltype(close)> file(
        sf_open_fd(fileno(part.stream()), SFM_WRITE, &info, SF_FALSE));
    if (!file)
        part.fail(sf_strerror(nullptr));
    // Without the chunk that holds the time of day: the same samples make the same file.
    sf_command(file.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);

    std::vector<float> batch;
    for (std::size_t first = 0; first < sound.samples(); first += batchSamples) {
        const std::size_t count = std::min(batchSamples, sound.samples() - first);
        batch.clear();
        for (std::size_t n = first; n < first + count; ++n)
            for (const std::vector<float>& channel : sound.channels)
                batch.push_back(channel[n]);
        const auto frames = static_cast<sf_count_t>(count);
        if (sf_writef_float(file.get(), batch.data(), frames) != frames)
            part.fail(sf_strerror(file.get()));
    }
    sf_write_sync(file.get());
    if (sf_close(file.release()) != 0)
        part.fail("the file could not be closed");
}

} // namespace examples
