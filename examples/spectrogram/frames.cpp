// frames.cpp - window and transform; the only file that calls the library.
#include "frames.h"

#include "failure.h"

#include <cmath>
#include <numbers>
#include <string>

namespace spectrogram
{
namespace
{

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

void check(RvnStatus status)
{
    if (status != RvnStatusNoError)
        throw examples::Failure("the transform failed with status " + std::to_string(status));
}

} // namespace

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

void transformFrames(std::span<const Rvn32fc> frames, std::span<Rvn32fc> spectra, int length)
{
    const auto step = static_cast<std::size_t>(length);
    for (std::size_t i = 0; i + step <= frames.size(); i += step)
        check(rvngDFTFwd_CToC_32fc(&frames[i], &spectra[i], length, RvnScaleFwdByN));
}

void inverseFrames(std::span<const Rvn32fc> spectra, std::span<Rvn32fc> frames, int length)
{
    const auto step = static_cast<std::size_t>(length);
    for (std::size_t i = 0; i + step <= spectra.size(); i += step)
        check(rvngDFTInv_CToC_32fc(&spectra[i], &frames[i], length, RvnScaleFwdByN));
}

} // namespace spectrogram
