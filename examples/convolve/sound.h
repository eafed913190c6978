// sound.h - a recording in memory, read from any audio file and written as WAV.
#ifndef CONVOLVE_SOUND_H
#define CONVOLVE_SOUND_H

#include <string>
#include <vector>

namespace convolve
{

struct Sound {
    int sampleRate = 0;
    std::vector<std::vector<float>> channels; // one or two, equally long

    std::size_t samples() const { return channels.front().size(); } // of each channel
    float peak() const;                                             // the largest magnitude
};

// Throws Failure unless the file is audio, mono or stereo, of finite samples.
Sound readSound(const std::string& path);

// Replaces or creates a WAV file of 32-bit floats in one step; throws Failure when that fails, and
// leaves an older file as it is.
void writeSound(const std::string& path, const Sound& sound);

} // namespace convolve

#endif
