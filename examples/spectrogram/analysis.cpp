// analysis.cpp - from samples to spectra: window, transform, check the way back, add up.
#include "analysis.h"

#include "level_plot.h"
#include "program.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace spectrogram
{
namespace
{

using std::numbers::pi;

constexpr std::size_t framesOfBatch = 256; // between two looks at the clock

class Analyser
{
public:
    Analyser(const examples::Sound& sound, Analysis& analysis)
        : sound_(sound), analysis_(analysis), shape_(analysis.shape)
    {
        const int N = shape_.length;
        for (int n = 0; n < N; ++n)
            window_.push_back(static_cast<float>(0.5 - 0.5 * std::cos(2 * pi * (n + 0.5) / N)));
        for (std::size_t k = 0; k < shape_.bins(); ++k)
            rotation_.push_back(std::polar(1.0, pi * static_cast<double>(k) * (N - 1) / N));
    }

    // The frames from the first on, of one panel.
    void addBatch(std::size_t panel, std::size_t first)
    {
        const std::size_t count = std::min(framesOfBatch, analysis_.frames - first);
        frames_.clear();
        for (std::size_t frame = first; frame < first + count; ++frame)
            for (std::size_t n = 0; n < window_.size(); ++n) {
                const std::size_t place = frame * static_cast<std::size_t>(analysis_.hop) + n;
                frames_.push_back(window_[n] * sound_.channels[panel][place]);
                if (shape_.iq)
                    frames_.push_back(window_[n] * sound_.channels[1][place]);
            }
        const std::size_t values = shape_.values(), bins = 2 * shape_.bins();
        spectra_.resize(count * bins);
        restored_.resize(frames_.size());
        examples::timed(analysis_.forwardSeconds, [&] {
            for (std::size_t i = 0; i < count; ++i)
                forward(&frames_[i * values], &spectra_[i * bins], shape_);
        });
        for (std::size_t i = 0; i < count; ++i)
            inverse(&spectra_[i * bins], &restored_[i * values], shape_);
        addRoundTrip();
        addPower(analysis_.panels[panel], first);
    }

    void finish() const
    {
        analysis_.roundTripError = frameEnergy_ > 0 ? std::sqrt(errorEnergy_ / frameEnergy_) : 0;
        std::vector<double> framesOfCell(analysis_.cellCount);
        for (std::size_t frame = 0; frame < analysis_.frames; ++frame)
            ++framesOfCell[analysis_.cellOf(frame)];
        for (Panel& panel : analysis_.panels) {
            for (std::size_t k = 0; k < shape_.bins(); ++k) {
                panel.power[k] /= static_cast<double>(analysis_.frames);
                panel.evenPower[k] /= static_cast<double>(analysis_.frames);
            }
            for (std::size_t i = 0; i < panel.cells.size(); ++i)
                panel.cells[i] /= framesOfCell[i / shape_.bins()];
        }
    }

private:
    void addRoundTrip()
    {
        for (std::size_t i = 0; i < frames_.size(); ++i) {
            const double value = frames_[i], error = restored_[i] - value;
            frameEnergy_ += value * value;
            errorEnergy_ += error * error;
        }
    }

    void addPower(Panel& panel, std::size_t first)
    {
        const std::size_t bins = shape_.bins();
        for (std::size_t i = 0; i < spectra_.size() / 2; ++i) {
            const std::size_t k = i % bins;
            const std::complex<double> value(spectra_[2 * i], spectra_[2 * i + 1]);
            const double even = (value * rotation_[k]).real();
            panel.power[k] += std::norm(value);
            panel.evenPower[k] += even * even;
            panel.cells[analysis_.cellOf(first + i / bins) * bins + k] += std::norm(value);
        }
    }

    const examples::Sound& sound_;
    Analysis& analysis_;
    FrameShape shape_;
    std::vector<float> window_;
    std::vector<std::complex<double>> rotation_; // moves the origin of phases to the centre
    std::vector<float> frames_, spectra_, restored_;
    double frameEnergy_ = 0, errorEnergy_ = 0;
};

} // namespace

Analysis analyse(const examples::Sound& sound, FrameShape shape, int hop)
{
    Analysis analysis = {.shape = shape, .hop = hop, .panels = {}};
    const std::size_t length = static_cast<std::size_t>(shape.length), bins = shape.bins();
    analysis.frames = (sound.samples() - length) / static_cast<std::size_t>(hop) + 1;
    analysis.cellCount = std::min<std::size_t>(analysis.frames, examples::panelWidth);
    for (const std::string& name :
         shape.iq ? std::vector<std::string>{"I/Q"} : examples::channelNames(sound))
        analysis.panels.push_back({name, std::vector<double>(bins), std::vector<double>(bins),
                                   std::vector<double>(bins * analysis.cellCount)});
    Analyser analyser(sound, analysis);
    for (std::size_t panel = 0; panel < analysis.panels.size(); ++panel)
        for (std::size_t first = 0; first < analysis.frames; first += framesOfBatch)
            analyser.addBatch(panel, first);
    analyser.finish();
    return analysis;
}

} // namespace spectrogram
