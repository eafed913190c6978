// audio.cpp - reading audio through libsndfile, which turns every sample format into floats.
#include "audio.h"

#include "failure.h"

#include <cmath>
#include <filesystem>
#include <sndfile.h>

namespace examples
{
namespace
{

// Beyond this a float file holds no sound, and the squares of a spectrum would not be finite.
constexpr float largestSample = 1e15f;

// Why a file could not be opened. The library's own words begin at "not audio"; they end in a stop
// or a line feed, which do not fit our line.
std::string openError(const std::string& path)
{
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return "no such file";
    if (std::filesystem::is_directory(path, ignored))
        return "is a directory";
    std::string words = sf_strerror(nullptr);
    words.resize(words.find_last_not_of(" .\r\n") + 1);
    return "cannot be read as audio: " + words;
}

} // namespace

void AudioFile::Close::operator()(SNDFILE* file) const
{
    sf_close(file);
}

AudioFile::AudioFile(const std::string& path, int mostChannels) : path_(path)
{
    SF_INFO info = {};
    file_.reset(sf_open(path.c_str(), SFM_READ, &info));
    if (!file_)
        throw Failure("'" + path + "': " + openError(path));
    if (info.channels > mostChannels)
        throw Failure("'" + path + "': " + std::to_string(info.channels) +
                      " channels; no more than " + std::to_string(mostChannels) +
                      " are understood");
    if (info.frames <= 0)
        throw Failure("'" + path + "': holds no samples");
    sampleRate_ = info.samplerate;
    channels_ = info.channels;
    samples_ = info.frames;
}

void AudioFile::read(std::span<float> interleaved)
{
    const auto wanted = static_cast<sf_count_t>(interleaved.size());
    if (sf_read_float(file_.get(), interleaved.data(), wanted) != wanted)
        throw Failure("'" + path_ + "': ends before its announced length");
    for (const float sample : interleaved)
        if (!(std::abs(sample) <= largestSample)) // so that NaN is refused too
            throw Failure("'" + path_ + "': holds samples that are not finite sound");
}

} // namespace examples
