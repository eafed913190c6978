// audio.h - an audio file, opened for reading from its start to its end.
#ifndef EXAMPLES_AUDIO_H
#define EXAMPLES_AUDIO_H

#include <cstdint>
#include <memory>
#include <span>
#include <string>

typedef struct sf_private_tag SNDFILE;

namespace examples
{

class AudioFile
{
public:
    // Throws Failure unless the file is audio with at least one sample and with no more channels.
    explicit AudioFile(const std::string& path, int mostChannels = 2);

    int sampleRate() const { return sampleRate_; }
    int channels() const { return channels_; }

    // Samples of each channel.
    std::int64_t samples() const { return samples_; }

    // Fills the span with the next samples, channels interleaved, full scale 1. Throws Failure when
    // the file ends before, and for samples that are no number one could compute with.
    void read(std::span<float> interleaved);

private:
    struct Close {
        void operator()(SNDFILE* file) const;
    };
    std::unique_ptr<SNDFILE, Close> file_;
    std::string path_;
    int sampleRate_ = 0;
    int channels_ = 0;
    std::int64_t samples_ = 0;
};

} // namespace examples

#endif
