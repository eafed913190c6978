// analysis.cpp - from samples to spectra: read, window, transform, check the way back, add up.
#include "analysis.h"

#include "failure.h"
#include "frames.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>

namespace spectrogram
{
namespace
{

constexpr std::int64_t framesOfBatch = 256;

// exp(2 pi i k c / N), c = (N - 1) / 2: moves the origin of the phases to the frame's centre.
std::vector<Rvn64fc> centreRotation(int length)
{
    std::vector<Rvn64fc> rotation;
    for (int k = 0; k < length; ++k) {
        const double angle = std::numbers::pi * k * (length - 1) / length;
        rotation.push_back({std::cos(angle), std::sin(angle)});
    }
    return rotation;
}

class Analyser
{
public:
    Analyser(const Analysis& shape, int channels)
        : shape_(shape), channels_(static_cast<std::size_t>(channels)),
          length_(static_cast<std::size_t>(shape.length)),
          hop_(static_cast<std::size_t>(shape.hop)), window_(hannWindow(shape.length)),
          rotation_(centreRotation(shape.length))
    {
    }

    // Analyses the frames first, first + 1, ... of a panel; samples begins with the first one's.
    void addBatch(Panel& panel, std::size_t panelIndex, std::span<const float> samples,
                  std::int64_t first, std::int64_t count)
    {
        fillFrames(panelIndex, samples, static_cast<std::size_t>(count));
        spectra_.resize(frames_.size());
        restored_.resize(frames_.size());

        const auto start = std::chrono::steady_clock::now();
        transformFrames(frames_, spectra_, shape_.length);
        const auto end = std::chrono::steady_clock::now();
        forwardTime_ += end - start;

        inverseFrames(spectra_, restored_, shape_.length);
        addRoundTrip();
        addPower(panel, first);
    }

    void finish(Analysis& analysis) const
    {
        analysis.forwardSeconds = std::chrono::duration<double>(forwardTime_).count();
        analysis.roundTripError = frameEnergy_ > 0 ? std::sqrt(errorEnergy_ / frameEnergy_) : 0;
        std::vector<double> framesOfCell(static_cast<std::size_t>(shape_.cellCount));
        for (std::int64_t frame = 0; frame < shape_.frames; ++frame)
            ++framesOfCell[cellOf(frame)];
        for (Panel& panel : analysis.panels) {
            for (std::size_t k = 0; k < length_; ++k) {
                panel.power[k] /= static_cast<double>(shape_.frames);
                panel.evenPower[k] /= static_cast<double>(shape_.frames);
            }
            for (std::size_t i = 0; i < panel.cells.size(); ++i)
                panel.cells[i] /= framesOfCell[i / length_];
        }
    }

private:
    std::size_t cellOf(std::int64_t frame) const
    {
        return static_cast<std::size_t>(frame * shape_.cellCount / shape_.frames);
    }

    void fillFrames(std::size_t panelIndex, std::span<const float> samples, std::size_t count)
    {
        frames_.clear();
        for (std::size_t frame = 0; frame < count; ++frame) {
            for (std::size_t n = 0; n < length_; ++n) {
                const float* sample = &samples[(frame * hop_ + n) * channels_];
                if (shape_.iq)
                    frames_.push_back({window_[n] * sample[0], window_[n] * sample[1]});
                else
                    frames_.push_back({window_[n] * sample[panelIndex], 0});
            }
        }
    }

    void addRoundTrip()
    {
        for (std::size_t i = 0; i < frames_.size(); ++i) {
            const double re = frames_[i].re;
            const double im = frames_[i].im;
            frameEnergy_ += re * re + im * im;
            errorEnergy_ += (restored_[i].re - re) * (restored_[i].re - re) +
                            (restored_[i].im - im) * (restored_[i].im - im);
        }
    }

    void addPower(Panel& panel, std::int64_t first)
    {
        for (std::size_t i = 0; i < spectra_.size(); ++i) {
            const std::size_t k = i % length_;
            const double re = spectra_[i].re;
            const double im = spectra_[i].im;
            const double even = re * rotation_[k].re - im * rotation_[k].im;
            const double power = re * re + im * im;
            panel.power[k] += power;
            panel.evenPower[k] += even * even;
            const std::int64_t frame = first + static_cast<std::int64_t>(i / length_);
            panel.cells[cellOf(frame) * length_ + k] += power;
        }
    }

    Analysis shape_;
    std::size_t channels_, length_, hop_;
    std::vector<float> window_;
    std::vector<Rvn64fc> rotation_;
    std::vector<Rvn32fc> frames_, spectra_, restored_;
    std::chrono::steady_clock::duration forwardTime_{};
    double frameEnergy_ = 0, errorEnergy_ = 0;
};

// The analysis before the first frame: sizes known, sums zero.
Analysis emptyAnalysis(const AudioFile& file, const Options& options, int mostCells)
{
    if (options.iq && file.channels() != 2)
        throw examples::Failure("'" + options.input +
                                "': --iq needs two channels, the file has one");
    if (file.samples() < options.length)
        throw examples::Failure("'" + options.input + "': " + std::to_string(file.samples()) +
                                " samples are fewer than one frame of " +
                                std::to_string(options.length));
    Analysis analysis;
    analysis.length = options.length;
    analysis.hop = options.hop;
    analysis.iq = options.iq;
    analysis.sampleRate = file.sampleRate();
    analysis.samples = file.samples();
    analysis.frames = (file.samples() - options.length) / options.hop + 1;
    analysis.cellCount = static_cast<int>(std::min<std::int64_t>(analysis.frames, mostCells));

    std::vector<std::string> names = {"left", "right"};
    if (file.channels() == 1 || options.iq)
        names = {options.iq ? "I/Q" : "mono"};
    const auto bins = static_cast<std::size_t>(options.length);
    for (const std::string& name : names)
        analysis.panels.push_back(
            {name, std::vector<double>(bins), std::vector<double>(bins),
             std::vector<double>(bins * static_cast<std::size_t>(analysis.cellCount))});
    return analysis;
}

} // namespace

Analysis analyse(AudioFile& file, const Options& options, int mostCells)
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
