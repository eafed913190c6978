// spectrum.h - all coefficients of a recording.
#ifndef MDCT_SPECTRUM_H
#define MDCT_SPECTRUM_H

#include "sound.h"
#include "transform.h"

#include <span>
#include <vector>

namespace mdct
{

struct Spectrum {
    std::size_t hop = 0, frames = 0; // of each channel
    std::vector<float> values;       // channel after channel, frame after frame

    std::size_t channelSize() const { return hop * frames; }
    std::span<const float> channel(std::size_t index) const
    {
        return std::span(values).subspan(index * channelSize(), channelSize());
    }
};

Spectrum analyse(const examples::Sound& sound, Transform& transform);

// The recording of a spectrum, as long as the one the spectrum is of.
examples::Sound synthesise(const Spectrum& spectrum, const examples::Sound& original,
                           Transform& transform);

} // namespace mdct

#endif
