// frames.cpp - window and transform; the only file that calls the library. A real channel takes the
// real transform, whose CCS layout is the spectrum's bins 0 to N/2 as pairs.
#include "frames.h"

#include "status.h"

#include <cmath>
#include <numbers>
#include <rvngenmx.h>

namespace spectrogram
{
namespace
{

using examples::check;
using std::numbers::pi;

// The response of a frame without a window: the mean of cos(2 pi x (n - (N - 1) / 2) / N).
double plainResponse(int length, double x)
{
    const double denominator = length * std::sin(pi * x / length);
    if (std::abs(denominator) > 1e-9)
        return std::sin(pi * x) / denominator;
    const bool oddTurn = std::lround(x / length) % 2 != 0; // x is a multiple of N
    return oddTurn && length % 2 == 0 ? -1.0 : 1.0;
}

// The library's complex numbers are pairs of plain ones.
const Rvn32fc* pairs(const float* values)
{
    return reinterpret_cast<const Rvn32fc*>(values);
}
Rvn32fc* pairs(float* values)
{
    return reinterpret_cast<Rvn32fc*>(values);
}

} // namespace

std::size_t FrameShape::index(int k) const
{
    const int repeated = ((k % length) + length) % length;
    return static_cast<std::size_t>(iq || repeated <= length / 2 ? repeated : length - repeated);
}

std::vector<float> hannWindow(int length)
{
    std::vector<float> window;
    for (int n = 0; n < length; ++n)
        window.push_back(static_cast<float>(0.5 - 0.5 * std::cos(2 * pi * (n + 0.5) / length)));
    return window;
}

// The window is 1/2 - exp(+...)/4 - exp(-...)/4, and half a turn lies between n + 1/2 and the
// frame's centre: the three terms have the same sign there.
double hannResponse(int length, double x)
{
    return plainResponse(length, x) / 2 + plainResponse(length, x - 1) / 4 +
           plainResponse(length, x + 1) / 4;
}

void transformFrames(std::span<const float> frames, std::span<float> spectra, FrameShape shape)
{
    const std::size_t count = frames.size() / shape.values();
    for (std::size_t i = 0; i < count; ++i) {
        const float* frame = &frames[i * shape.values()];
        float* spectrum = &spectra[2 * i * shape.bins()];
        check(shape.iq ? rvngDFTFwd_CToC_32fc(pairs(frame), pairs(spectrum), shape.length,
                                              RvnScaleFwdByN)
                       : rvngDFTFwd_RToCCS_32f(frame, spectrum, shape.length, RvnScaleFwdByN));
    }
}

void inverseFrames(std::span<const float> spectra, std::span<float> frames, FrameShape shape)
{
    const std::size_t count = frames.size() / shape.values();
    for (std::size_t i = 0; i < count; ++i) {
        const float* spectrum = &spectra[2 * i * shape.bins()];
        float* frame = &frames[i * shape.values()];
        check(shape.iq ? rvngDFTInv_CToC_32fc(pairs(spectrum), pairs(frame), shape.length,
                                              RvnScaleFwdByN)
                       : rvngDFTInv_CCSToR_32f(spectrum, frame, shape.length, RvnScaleFwdByN));
    }
}

} // namespace spectrogram
