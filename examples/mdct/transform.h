// transform.h - the modified discrete cosine transform of a recording, there and back.
//
// Frame t is the 2N samples from (t - 1) N on, N being the hop; beyond the ends of the signal there
// is silence. With the window w,
//
//     X[t][k] = sqrt(2/N) sum over n of w[n] x[(t - 1) N + n] cos(pi/N (n + 1/2 + N/2) (k + 1/2)),
//
// k from 0 to N - 1, n from 0 to 2N - 1. The inverse transform of one frame holds its samples and,
// mirrored, an alias of them; where frames overlap the aliases cancel and the samples add up (time
// domain aliasing cancellation: Princen and Bradley 1986). With this scale the transform is
// orthogonal: what is dropped of the coefficients' energy is missing in the signal's.
#ifndef MDCT_TRANSFORM_H
#define MDCT_TRANSFORM_H

#include "sound.h"
#include "window.h"

#include <rvngenmx.hpp>
#include <span>
#include <vector>

// All coefficients of a recording.
struct Spectrum {
    std::size_t hop = 0, frames = 0; // of each channel
    std::vector<float> values;       // channel after channel, frame after frame

    std::span<const float> frame(std::size_t channel, std::size_t index) const
    {
        return std::span(values).subspan((channel * frames + index) * hop, hop);
    }
};

// Frames that were transformed in one direction, with window, folding and overlap-add.
struct Use {
    std::size_t frames = 0;
    double seconds = 0;
};

class Transform
{
public:
    // The hop is a power of two, 64 or more.
    Transform(int hop, Window window);

    // Frames of a signal of so many samples, one more than hops.
    std::size_t frames(std::size_t samples) const { return (samples + hop_ - 1) / hop_ + 1; }

    Spectrum analyse(const Sound& sound);

    // The recording of a spectrum, as long as the one that the spectrum is of.
    Sound synthesise(const Spectrum& spectrum, const Sound& original);

    const Use& forwardUse() const { return forwardUse_; }
    const Use& inverseUse() const { return inverseUse_; }

    // The largest coefficient that a tone of amplitude 1 makes, its frequency a bin's.
    double toneGain() const { return toneGain_; }

private:
    // A frame x of 2N samples to its coefficients, and what they make, added to such a frame.
    void forwardFrame(const float* x, std::span<float> X);
    void inverseFrame(std::span<const float> X, float* x);

    std::size_t hop_;
    rvng::Dct4<float> dct4_;
    std::vector<float> window_; // times sqrt(2/N), once in each direction
    double toneGain_ = 0;
    std::vector<float> folded_; // a frame of the way back
    Use forwardUse_, inverseUse_;
};

#endif
