// response.cpp - the ideal band's response, cut by a window. With f and g the edges of the band in
// turns a sample and m counted from the middle tap,
//
//     h[m] = w[m] (sin(2 pi g m) - sin(2 pi f m)) / (pi m)
//          = w[m] 2 cos(pi (g + f) m) sin(pi (g - f) m) / (pi m),   h[0] = w[0] 2 (g - f),
//
// the second form without cancellation in a narrow band, and w Hamming's window. Low-pass and
// high-pass are the bands from 0 and to 1/2.
#include "response.h"

#include "failure.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <string>

namespace convolve
{
namespace
{

using std::numbers::pi;

void expectBelowHalf(double hertz, int sampleRate)
{
    if (hertz >= sampleRate / 2.0)
        throw examples::Failure("the frequency " + std::to_string(hertz) +
                                " Hz is not below half the sample rate of " +
                                std::to_string(sampleRate) + " Hz");
}

double tap(int m, int middle, double low, double high)
{
    const double window = 0.54 + 0.46 * std::cos(pi * m / middle);
    if (m == 0)
        return window * 2 * (high - low);
    return window * 2 * std::cos(pi * (high + low) * m) * std::sin(pi * (high - low) * m) /
           (pi * m);
}

// Where the gain is to be 1.
double reference(double low, double high)
{
    if (low == 0)
        return 0;
    return high == 0.5 ? 0.5 : (low + high) / 2;
}

} // namespace

std::vector<float> designResponse(Band band, int taps, int sampleRate)
{
    const bool highpass = std::isinf(band.high);
    expectBelowHalf(highpass ? band.low : band.high, sampleRate);
    const double low = band.low / sampleRate;
    const double high = highpass ? 0.5 : band.high / sampleRate;

    const int middle = taps / 2;
    double gain = 0; // the response is symmetric, so that its cosines tell
    for (int m = -middle; m <= middle; ++m)
        gain += tap(m, middle, low, high) * std::cos(2 * pi * reference(low, high) * m);
    if (!(std::abs(gain) >= std::numeric_limits<float>::min()))
        throw examples::Failure("the band is too narrow for a response");
    std::vector<float> response;
    for (int m = -middle; m <= middle; ++m)
        response.push_back(static_cast<float>(tap(m, middle, low, high) / gain));
    return response;
}

} // namespace convolve
