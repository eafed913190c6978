// analysis.cpp - from samples to spectra: read, window, transform, check the way back, add up.
#include "analysis.h"

#include "failure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <complex>
#include <numbers>

namespace spectrogram
{
namespace
{

constexpr std::int64_t framesOfBatch = 256;

// exp(2 pi i k c / N), c = (N - 1) / 2: moves the origin of the phases to the frame's centre.
std::vector<std::complex<double>> centreRotation(FrameShape shape)
{
    std::vector<std::complex<double>> rotation;
    for (std::size_t k = 0; k < shape.bins(); ++k)
        rotation.push_back(std::polar(1.0, std::numbers::pi * static_cast<double>(k) *
                                               (shape.length - 1) / shape.length));
    return rotation;
}

class Analyser
{
public:
    Analyser(const Analysis& outline, int channels)
        : shape_(outline.shape), channels_(static_cast<std::size_t>(channels)),
          hop_(static_cast<std::size_t>(outline.hop)), frameCount_(outline.frames),
          cellCount_(outline.cellCount), window_(hannWindow(shape_.length)),
          rotation_(centreRotation(shape_))
    {
    }

    // Analyses the frames first, first + 1, ... of a panel; samples begins with the first one's.
    void addBatch(Panel& panel, std::size_t panelIndex, std::span<const float> samples,
                  std::int64_t first, std::int64_t count)
    {
        fillFrames(panelIndex, samples, static_cast<std::size_t>(count));
        spectra_.resize(static_cast<std::size_t>(count) * 2 * shape_.bins());
        restored_.resize(frames_.size());

        const auto start = std::chrono::steady_clock::now();
        transformFrames(frames_, spectra_, shape_);
        const auto end = std::chrono::steady_clock::now();
        forwardTime_ += end - start;

        inverseFrames(spectra_, restored_, shape_);
        addRoundTrip();
        addPower(panel, first);
    }

    void finish(Analysis& analysis) const
    {
        analysis.forwardSeconds = std::chrono::duration<double>(forwardTime_).count();
        analysis.roundTripError = frameEnergy_ > 0 ? std::sqrt(errorEnergy_ / frameEnergy_) : 0;
        std::vector<double> framesOfCell(static_cast<std::size_t>(cellCount_));
        for (std::int64_t frame = 0; frame < frameCount_; ++frame)
            ++framesOfCell[cellOf(frame)];
        for (Panel& panel : analysis.panels) {
            for (std::size_t k = 0; k < shape_.bins(); ++k) {
                panel.power[k] /= static_cast<double>(frameCount_);
                panel.evenPower[k] /= static_cast<double>(frameCount_);
            }
            for (std::size_t i = 0; i < panel.cells.size(); ++i)
                panel.cells[i] /= framesOfCell[i / shape_.bins()];
        }
    }

private:
    std::size_t cellOf(std::int64_t frame) const
    {
        return static_cast<std::size_t>(frame * cellCount_ / frameCount_);
    }

    void fillFrames(std::size_t panelIndex, std::span<const float> samples, std::size_t count)
    {
        frames_.clear();
        for (std::size_t frame = 0; frame < count; ++frame) {
            for (std::size_t n = 0; n < window_.size(); ++n) {
                const float* sample = &samples[(frame * hop_ + n) * channels_];
                frames_.push_back(window_[n] * sample[panelIndex]);
                if (shape_.iq)
                    frames_.push_back(window_[n] * sample[1]);
            }
        }
    }

    void addRoundTrip()
    {
        for (std::size_t i = 0; i < frames_.size(); ++i) {
            const double value = frames_[i];
            const double error = restored_[i] - value;
            frameEnergy_ += value * value;
            errorEnergy_ += error * error;
        }
    }

    void addPower(Panel& panel, std::int64_t first)
    {
        const std::size_t bins = shape_.bins();
        for (std::size_t i = 0; i < spectra_.size() / 2; ++i) {
            const std::size_t k = i % bins;
            const std::complex<double> value(spectra_[2 * i], spectra_[2 * i + 1]);
            const double even = (value * rotation_[k]).real();
            const double power = std::norm(value);
            panel.power[k] += power;
            panel.evenPower[k] += even * even;
            const std::int64_t frame = first + static_cast<std::int64_t>(i / bins);
            panel.cells[cellOf(frame) * bins + k] += power;
        }
    }

    FrameShape shape_;
    std::size_t channels_, hop_;
    std::int64_t frameCount_;
    int cellCount_;
    std::vector<float> window_;
    std::vector<std::complex<double>> rotation_;
    std::vector<float> frames_, spectra_, restored_;
    std::chrono::steady_clock::duration forwardTime_{};
    double frameEnergy_ = 0, errorEnergy_ = 0;
};

// The analysis before the first frame: sizes known, sums zero.
Analysis emptyAnalysis(const examples::AudioFile& file, const Options& options, int mostCells)
{
    if (options.iq && file.channels() != 2)
        throw examples::Failure("'" + options.input +
                                "': --iq needs two channels, the file has one");
    if (file.samples() < options.length)
        throw examples::Failure("'" + options.input + "': " + std::to_string(file.samples()) +
                                (file.samples() == 1 ? " sample is" : " samples are") +
                                " fewer than one frame of " + std::to_string(options.length));
    Analysis analysis;
    analysis.shape = {options.length, options.iq};
    analysis.hop = options.hop;
    analysis.sampleRate = file.sampleRate();
    analysis.samples = file.samples();
    analysis.frames = (file.samples() - options.length) / options.hop + 1;
    analysis.cellCount = static_cast<int>(std::min<std::int64_t>(analysis.frames, mostCells));

    std::vector<std::string> names = {"left", "right"};
    if (file.channels() == 1 || options.iq)
        names = {options.iq ? "I/Q" : "mono"};
    const std::size_t bins = analysis.shape.bins();
    for (const std::string& name : names)
        analysis.panels.push_back(
            {name, std::vector<double>(bins), std::vector<double>(bins),
             std::vector<double>(bins * static_cast<std::size_t>(analysis.cellCount))});
    return analysis;
}

} // namespace

Analysis analyse(examples::AudioFile& file, const Options& options, int mostCells)
{
    Analysis analysis = emptyAnalysis(file, options, mostCells);
    Analyser analyser(analysis, file.channels());

    // A batch begins with the samples its first frame shares with the frame before.
    const auto channels = static_cast<std::size_t>(file.channels());
    const auto shared = static_cast<std::size_t>(options.length - options.hop) * channels;
    std::vector<float> samples(shared);
    file.read(samples);
    for (std::int64_t first = 0; first < analysis.frames; first += framesOfBatch) {
        const std::int64_t count = std::min(framesOfBatch, analysis.frames - first);
        const auto fresh = static_cast<std::size_t>(count * options.hop) * channels;
        samples.resize(shared + fresh);
        file.read(std::span(samples).last(fresh));
        for (std::size_t i = 0; i < analysis.panels.size(); ++i)
            analyser.addBatch(analysis.panels[i], i, samples, first, count);
        std::copy(samples.end() - static_cast<std::ptrdiff_t>(shared), samples.end(),
                  samples.begin());
    }
    analyser.finish(analysis);
    return analysis;
}

} // namespace spectrogram
