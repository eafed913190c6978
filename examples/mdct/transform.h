// transform.h - the modified discrete cosine transform of one channel, there and back.
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

#include "dct4.h"
#include "window.h"

#include <cstdint>
#include <span>
#include <vector>

namespace mdct
{

// Frames that were transformed in one direction.
struct Use {
    std::int64_t frames = 0;
    double seconds = 0; // with window, folding and overlap-add
};

class Transform
{
public:
    // The hop is a power of two, 64 or more.
    Transform(int hop, Window window);

    // Frames of a signal of so many samples, one more than hops.
    std::size_t frames(std::size_t samples) const { return (samples + hop_ - 1) / hop_ + 1; }

    // The coefficients of a signal, hop of them a frame, and the signal of coefficients.
    void forward(std::span<const float> signal, std::span<float> coefficients);
    void inverse(std::span<const float> coefficients, std::span<float> signal);

    std::size_t hop() const { return hop_; }
    const Use& forwardUse() const { return forwardUse_; }
    const Use& inverseUse() const { return inverseUse_; }

    // The largest coefficient that a tone of amplitude 1 makes, its frequency a bin's.
    double toneGain() const { return toneGain_; }

private:
    std::size_t hop_;
    Dct4 dct4_;
    std::vector<float> window_; // times sqrt(2/N), once in each direction
    double toneGain_ = 0;
    std::vector<float> padded_; // the signal with a hop of silence before, and some behind
    std::vector<float> folded_; // a frame of the way back
    Use forwardUse_, inverseUse_;
};

} // namespace mdct

#endif
