// sound.cpp - through libsndfile, which turns every sample format into floats. Channels are apart
// in memory and interleaved in files.
#include "sound.h"

#include "level_plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <sndfile.hh>

namespace
{

constexpr std::size_t batchSamples = std::size_t{1} << 14;

// The sizes in a WAV file are 32-bit numbers, of which its header needs a little.
constexpr std::uint64_t largestWav = 0xffff0000u;

// Beyond this a float file holds no sound, and the squares of a spectrum would not be finite.
constexpr float largestSample = 1e15f;

// Why a file could not be opened. The library's own words end in a stop or a line feed.
std::string openError(const std::string& path, const SndfileHandle& file)
{
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return "no such file";
    if (std::filesystem::is_directory(path, ignored))
        return "is a directory";
    if (std::filesystem::is_regular_file(path, ignored) &&
        std::filesystem::file_size(path, ignored) == 0)
        return "is empty";
    const std::string words = file.strError();
    return "cannot be read as audio: " + words.substr(0, words.find_last_not_of(" .\r\n") + 1);
}

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
    const auto refuse = [&](const std::string& why) { throw Failure("'" + path + "': " + why); };
    SndfileHandle file(path);
    if (file.error() != 0)
        refuse(openError(path, file));
    if (file.channels() > mostChannels)
        refuse(std::to_string(file.channels()) + " channels; no more than " +
               std::to_string(mostChannels) + " are understood");
    if (file.frames() <= 0)
        refuse("holds no samples");

    const auto channels = static_cast<std::size_t>(file.channels());
    Sound sound = {file.samplerate(), std::vector<std::vector<float>>(channels)};
    std::vector<float> batch(batchSamples * channels);
    for (sf_count_t count; (count = file.readf(batch.data(), batchSamples)) > 0;)
        for (std::size_t i = 0; i < count * channels; ++i) {
            if (!(std::abs(batch[i]) <= largestSample)) // so that NaN is refused too
                refuse("holds samples that are not finite sound");
            sound.channels[i % channels].push_back(batch[i]);
        }
    if (static_cast<sf_count_t>(sound.samples()) < file.frames())
        refuse("ends before its announced length");
    return sound;
}

void writeSound(PartFile& part, const Sound& sound)
{
    const std::size_t channels = sound.channels.size();
    if (sound.samples() > largestWav / (sizeof(float) * channels))
        part.fail("longer than a WAV file can be");

    SndfileHandle file(fileno(part.stream()), false, SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_FLOAT,
                       static_cast<int>(channels), sound.sampleRate);
    // Without the chunk that holds the time of day: the same samples make the same file.
    file.command(SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    std::vector<float> batch;
    for (std::size_t first = 0; first < sound.samples(); first += batchSamples) {
        const std::size_t count = std::min(batchSamples, sound.samples() - first);
        batch.clear();
        for (std::size_t n = first; n < first + count; ++n)
            for (const std::vector<float>& channel : sound.channels)
                batch.push_back(channel[n]);
        if (file.writef(batch.data(), count) != static_cast<sf_count_t>(count))
            part.fail(file.strError());
    }
    file.writeSync();
    if (sf_close(file.takeOwnership()) != 0)
        part.fail("the file could not be closed");
}

void printSound(const std::string& path, const Sound& sound, const std::string& words)
{
    const Unit unit = timeUnit(sound.seconds());
    std::printf("audio        %s: %d Hz, %s, %.3f %s, %s\n", printable(path).c_str(),
                sound.sampleRate, counted(sound.samples(), "sample").c_str(),
                sound.seconds() / unit.size, unit.name,
                words.empty() ? counted(sound.channels.size(), "channel").c_str() : words.c_str());
}

std::vector<std::string> channelNames(const Sound& sound)
{
    if (sound.channels.size() == 1)
        return {"mono"};
    if (sound.channels.size() == 2)
        return {"left", "right"};
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= sound.channels.size(); ++i)
        names.push_back("channel " + std::to_string(i));
    return names;
}
