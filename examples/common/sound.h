// sound.h - a recording in memory, read from any audio file and written as WAV.
#ifndef EXAMPLES_SOUND_H
#define EXAMPLES_SOUND_H

#include "part_file.h"

#include <string>
#include <vector>

struct Sound {
    int sampleRate = 0;
    std::vector<std::vector<float>> channels; // one or more, equally long

    std::size_t samples() const { return channels.front().size(); } // of each channel
    double seconds() const { return static_cast<double>(samples()) / sampleRate; }
    float peak() const; // the largest magnitude
};

// Throws Failure unless the file is audio of finite samples, with no more channels than given.
Sound readSound(const std::string& path, int mostChannels = 2);

// Fills a WAV file of 32-bit floats, which is left to be committed; throws Failure when that fails.
void writeSound(PartFile& part, const Sound& sound);

// Prints the line "audio  ..." of a report, with the number of channels or these words.
void printSound(const std::string& path, const Sound& sound, const std::string& words = "");

// "mono", or "left" and "right", or numbers.
std::vector<std::string> channelNames(const Sound& sound);

#endif
