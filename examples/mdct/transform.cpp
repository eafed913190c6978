// transform.cpp - channel by channel, each with a hop of silence before it and some behind.
#include "transform.h"

#include "program.h"

#include <algorithm>
#include <cmath>

Transform::Transform(int hop, Window window) : hop_(hop), dct4_(hop_), folded_(hop_)
{
    if (dct4_.status() == rvng::Status::NullPointer)
        throw std::bad_alloc();
    check(dct4_.status());
    const double scale = std::sqrt(2.0 / hop);
    for (const double value : windowValues(window, hop)) {
        window_.push_back(static_cast<float>(scale * value));
        toneGain_ += scale * value / 2;
    }
}

Spectrum Transform::analyse(const Sound& sound)
{
    const std::size_t count = frames(sound.samples());
    Spectrum spectrum = {hop_, count, std::vector<float>(sound.channels.size() * count * hop_)};
    float* values = spectrum.values.data();
    for (const std::vector<float>& channel : sound.channels) {
        std::vector<float> padded((count + 1) * hop_);
        std::ranges::copy(channel, padded.begin() + hop_);
        timed(forwardUse_.seconds, [&] {
            for (std::size_t frame = 0; frame < count; ++frame, values += hop_)
                forwardFrame(&padded[frame * hop_], {values, hop_});
        });
        forwardUse_.frames += count;
    }
    return spectrum;
}

Sound Transform::synthesise(const Spectrum& spectrum, const Sound& original)
{
    Sound sound = {original.sampleRate, {}};
    for (std::size_t i = 0; i < original.channels.size(); ++i) {
        std::vector<float> padded((spectrum.frames + 1) * hop_);
        timed(inverseUse_.seconds, [&] {
            for (std::size_t frame = 0; frame < spectrum.frames; ++frame)
                inverseFrame(spectrum.frame(i, frame), &padded[frame * hop_]);
        });
        inverseUse_.frames += spectrum.frames;
        const auto begin = padded.begin() + hop_;
        sound.channels.emplace_back(begin, begin + original.samples());
    }
    return sound;
}
