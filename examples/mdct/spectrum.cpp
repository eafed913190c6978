// spectrum.cpp - channel by channel.
#include "spectrum.h"

namespace mdct
{

Spectrum analyse(const examples::Sound& sound, Transform& transform)
{
    Spectrum spectrum = {transform.hop(), transform.frames(sound.samples()), {}};
    const std::size_t size = spectrum.channelSize();
    spectrum.values.resize(sound.channels.size() * size);
    for (std::size_t i = 0; i < sound.channels.size(); ++i)
        transform.forward(sound.channels[i], std::span(spectrum.values).subspan(i * size, size));
    return spectrum;
}

examples::Sound synthesise(const Spectrum& spectrum, const examples::Sound& original,
                           Transform& transform)
{
    examples::Sound sound = {original.sampleRate, {}};
    for (std::size_t i = 0; i < original.channels.size(); ++i) {
        sound.channels.emplace_back(original.samples());
        transform.inverse(spectrum.channel(i), sound.channels.back());
    }
    return sound;
}

} // namespace mdct
