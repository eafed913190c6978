// analysis.cpp - from samples to spectra: window, transform, check the way back, add up.
#include "analysis.h"

#include "level_plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

Analysis analyse(const Sound& sound, FrameShape shape, int hop)
{
    using std::numbers::pi;
    constexpr std::size_t framesOfBatch = 256; // between two looks at the clock
    const int N = shape.length;
    const std::size_t bins = shape.bins(), values = shape.values();
    const std::size_t total = (sound.samples() - N) / hop + 1;
    const std::size_t cellCount = std::min<std::size_t>(total, panelWidth);
    Analysis analysis = {shape, hop, total, cellCount, {}};

    std::vector<float> window;
    for (int n = 0; n < N; ++n)
        window.push_back(static_cast<float>(0.5 - 0.5 * std::cos(2 * pi * (n + 0.5) / N)));
    std::vector<std::complex<double>> rotation; // moves the origin of phases to the frame's centre
    for (int k = 0; k < N; ++k)
        rotation.push_back(std::polar(1.0, pi * k * (N - 1) / N));
    std::vector<double> framesOfCell(cellCount);
    for (std::size_t frame = 0; frame < total; ++frame)
        ++framesOfCell[frame * cellCount / total];

    std::vector<float> frames, spectra, restored;
    double energy = 0, errorEnergy = 0;
    const auto addBatch = [&](Panel& panel, std::size_t channel, std::size_t first) {
        const std::size_t count = std::min(framesOfBatch, total - first);
        frames.clear();
        for (std::size_t frame = first; frame < first + count; ++frame)
            for (int n = 0; n < N; ++n) {
                frames.push_back(window[n] * sound.channels[channel][frame * hop + n]);
                if (shape.iq)
                    frames.push_back(window[n] * sound.channels[1][frame * hop + n]);
            }
        spectra.resize(count * 2 * bins);
        restored.resize(frames.size());
        timed(analysis.forwardSeconds, [&] {
            for (std::size_t i = 0; i < count; ++i)
                forward(&frames[i * values], &spectra[i * 2 * bins], shape);
        });
        for (std::size_t i = 0; i < count; ++i)
            inverse(&spectra[i * 2 * bins], &restored[i * values], shape);
        for (std::size_t i = 0; i < frames.size(); ++i) {
            const double value = frames[i], error = restored[i] - value;
            energy += value * value;
            errorEnergy += error * error;
        }
        for (std::size_t i = 0; i < count * bins; ++i) {
            const std::size_t k = i % bins, cell = (first + i / bins) * cellCount / total;
            const std::complex<double> value(spectra[2 * i], spectra[2 * i + 1]);
            const double even = (value * rotation[k]).real();
            panel.power[k] += std::norm(value) / static_cast<double>(total);
            panel.evenPower[k] += even * even / static_cast<double>(total);
            panel.cells[cell * bins + k] += std::norm(value) / framesOfCell[cell];
        }
    };
    const std::vector<std::string> names = channelNames(sound);
    for (std::size_t i = 0; i < (shape.iq ? 1 : names.size()); ++i) {
        analysis.panels.push_back({shape.iq ? "I/Q" : names[i], std::vector<double>(bins),
                                   std::vector<double>(bins),
                                   std::vector<double>(bins * cellCount)});
        for (std::size_t first = 0; first < total; first += framesOfBatch)
            addBatch(analysis.panels.back(), i, first);
    }
    analysis.roundTripError = energy > 0 ? std::sqrt(errorEnergy / energy) : 0;
    return analysis;
}
