// levels.cpp - the powers of the coefficients of a DCT-IV, averaged over windowed frames.
#include "levels.h"

#include "program.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <rvngenmx.hpp>

std::vector<std::pair<double, double>> meanLevels(const Sound& sound)
{
    constexpr std::size_t N = 512, hop = N / 2;
    std::vector<float> window;
    double sum = 0;
    for (std::size_t n = 0; n < N; ++n) {
        window.push_back(
            std::pow(std::sin(3.14159265f * (static_cast<float>(n) + 0.5f) / N), 2.0f));
        sum += window.back();
    }
    rvng::Dct4<float> dct4(N);
    std::vector<double> power(N);
    double frames = 0;
    for (const std::vector<float>& channel : sound.channels)
        for (std::size_t first = 0; first < channel.size(); first += hop, ++frames) {
            std::array<float, N> frame = {};
            for (std::size_t n = 0; n < std::min(N, channel.size() - first); ++n)
                frame[n] = window[n] * channel[first + n];
            check(dct4.run(frame, frame));
            for (std::size_t k = 0; k < N; ++k)
                power[k] += static_cast<double>(frame[k]) * frame[k];
        }

    // A tone of full scale leaves half the window's sum times a cosine of its phase.
    std::vector<std::pair<double, double>> levels;
    for (std::size_t k = 0; k < N; ++k)
        levels.emplace_back((static_cast<double>(k) + 0.5) * sound.sampleRate / (2.0 * N),
                            10 * std::log10(std::max(8 * power[k] / frames / (sum * sum), 1e-20)));
    return levels;
}
