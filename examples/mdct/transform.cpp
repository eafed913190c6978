// transform.cpp - the MDCT by way of the DCT-IV. The cosines of the MDCT are those of a DCT-IV gone
// on beyond its N values, odd at one end and even at the other; so the frame, in quarters a b c d
// and with r for reversed ones, folds into
//
//     (-c_r - d, a - b_r),   N values, whose DCT-IV is the MDCT of the frame.
//
// The DCT-IV applied twice gives N/2 times that, (g, h), which unfolds to the frame
//
//     (h, -h_r, -g_r, -g) = (a - b_r, b - a_r, c + d_r, d + c_r).
#include "transform.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace mdct
{
namespace
{

// N folded values of a frame x of 2N.
void fold(const float* x, const float* window, float* folded, std::size_t hop)
{
    const std::size_t half = hop / 2;
    const auto at = [&](std::size_t n) { return window[n] * x[n]; };
    for (std::size_t n = 0; n < half; ++n) {
        folded[n] = -at(hop + half - 1 - n) - at(hop + half + n);
        folded[half + n] = at(n) - at(hop - 1 - n);
    }
}

// Adds the frame of 2N values that N folded ones stand for.
void addUnfolded(const float* folded, const float* window, float* x, std::size_t hop)
{
    const std::size_t half = hop / 2;
    const auto add = [&](std::size_t n, float value) { x[n] += window[n] * value; };
    for (std::size_t n = 0; n < half; ++n) {
        add(n, folded[half + n]);
        add(hop - 1 - n, -folded[half + n]);
        add(hop + half - 1 - n, -folded[n]);
        add(hop + half + n, -folded[n]);
    }
}

// Calls work(frame) for each frame, and adds to the use what that took.
template <typename Work> void timed(std::size_t frames, Use& use, Work work)
{
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t frame = 0; frame < frames; ++frame)
        work(frame);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    use.frames += static_cast<std::int64_t>(frames);
    use.seconds += time.count();
}

} // namespace

Transform::Transform(int hop, Window window)
    : hop_(static_cast<std::size_t>(hop)), dct4_(hop), folded_(hop_)
{
    const double scale = std::sqrt(2.0 / hop);
    for (const double value : windowValues(window, hop)) {
        window_.push_back(static_cast<float>(scale * value));
        toneGain_ += scale * value / 2;
    }
}

void Transform::forward(std::span<const float> signal, std::span<float> coefficients)
{
    const std::size_t count = frames(signal.size());
    padded_.assign((count + 1) * hop_, 0.0f);
    std::ranges::copy(signal, padded_.begin() + static_cast<std::ptrdiff_t>(hop_));
    timed(count, forwardUse_, [&](std::size_t frame) {
        float* values = &coefficients[frame * hop_];
        fold(&padded_[frame * hop_], window_.data(), values, hop_);
        dct4_(values, values);
    });
}

void Transform::inverse(std::span<const float> coefficients, std::span<float> signal)
{
    const std::size_t count = frames(signal.size());
    padded_.assign((count + 1) * hop_, 0.0f);
    timed(count, inverseUse_, [&](std::size_t frame) {
        dct4_(&coefficients[frame * hop_], folded_.data());
        addUnfolded(folded_.data(), window_.data(), &padded_[frame * hop_], hop_);
    });
    std::copy_n(padded_.begin() + static_cast<std::ptrdiff_t>(hop_), signal.size(), signal.begin());
}

} // namespace mdct
