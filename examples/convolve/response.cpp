// response.cpp - the ideal band's response, cut by a window. With f and g the edges of the band in
// turns a sample and m counted from the middle tap,
//
//     h[m] = w[m] (sin(2 pi g m) - sin(2 pi f m)) / (pi m)
//          = w[m] 2 cos(pi (g + f) m) sin(pi (g - f) m) / (pi m),   h[0] = w[0] 2 (g - f),
//
// the second form without cancellation in a narrow band, and w Hamming's window. Low-pass and
// high-pass are the bands from 0 and to 1/2.
#include "response.h"

#include "program.h"
#include "sound.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <numbers>
#include <sstream>

namespace
{

using std::numbers::pi;

void expectBelowHalf(double hertz, int sampleRate)
{
    if (hertz >= sampleRate / 2.0)
        throw Failure(formatted("the frequency %.9g Hz", hertz) +
                      " is not below half the sample rate of " + std::to_string(sampleRate) +
                      " Hz");
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

constexpr std::size_t mostTaps = std::size_t{1} << 20; // of a file
constexpr double largestTap = 1e15;                    // as of audio

[[noreturn]] void refuse(const std::string& path, const std::string& reason)
{
    throw Failure("'" + path + "': " + reason);
}

// Audio files have zero bytes in their headers. What cannot be read is left to the audio library,
// whose errors are told as any others.
bool isText(const std::string& path)
{
    std::array<char, 64> bytes;
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), bytes.size());
    const auto isPlain = [](unsigned char c) { return std::isprint(c) || std::isspace(c); };
    return file.gcount() > 0 && std::all_of(bytes.begin(), bytes.begin() + file.gcount(), isPlain);
}

std::vector<float> readText(const std::string& path)
{
    std::ifstream file(path);
    std::vector<float> taps;
    for (std::string line; std::getline(file, line);) {
        std::ranges::replace(line, ',', ' ');
        std::ranges::replace(line, '\0', '?'); // a message would end there
        std::istringstream words(line);
        for (std::string word; words >> word;) {
            const char *begin = word.data() + (word[0] == '+'), *end = word.data() + word.size();
            double value = 0;
            const auto [stop, error] = std::from_chars(begin, end, value);
            if (error != std::errc() || stop != end || !(std::abs(value) <= largestTap))
                refuse(path, "'" + word.substr(0, 40) + "' is not a number to filter with");
            taps.push_back(static_cast<float>(value));
        }
        if (taps.size() > mostTaps)
            break;
    }
    if (taps.empty())
        refuse(path, "holds no numbers");
    return taps;
}

std::vector<float> readAudio(const std::string& path, int sampleRate)
{
    const Sound sound = readSound(path);
    if (sound.channels.size() != 1)
        refuse(path, "two channels; a response has one");
    if (sound.sampleRate != sampleRate)
        refuse(path, "sampled at " + std::to_string(sound.sampleRate) + " Hz, the recording at " +
                         std::to_string(sampleRate) + " Hz");
    return sound.channels[0];
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
        throw Failure("the band is too narrow for a response");
    std::vector<float> response;
    for (int m = -middle; m <= middle; ++m)
        response.push_back(static_cast<float>(tap(m, middle, low, high) / gain));
    return response;
}

std::string bandText(Band band)
{
    if (band.low == 0)
        return formatted("low-pass to %g Hz", band.high);
    if (std::isinf(band.high))
        return formatted("high-pass from %g Hz", band.low);
    return formatted("band-pass from %g to ", band.low) + formatted("%g Hz", band.high);
}

double tapsNeeded(Band band, int sampleRate)
{
    const double half = sampleRate / 2.0;
    double room = half;
    if (band.low > 0)
        room = std::min({room, band.low, half - band.low});
    if (std::isfinite(band.high))
        room = std::min({room, band.high, half - band.high});
    if (band.low > 0 && std::isfinite(band.high))
        room = std::min(room, (band.high - band.low) / 2);
    return 1.65 * sampleRate / room;
}

std::vector<float> readResponse(const std::string& path, int sampleRate)
{
    std::vector<float> taps = isText(path) ? readText(path) : readAudio(path, sampleRate);
    if (taps.size() > mostTaps)
        refuse(path, "more than " + std::to_string(mostTaps) + " taps");
    return taps;
}
