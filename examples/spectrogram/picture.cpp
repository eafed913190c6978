// picture.cpp - the analysis' cells as levels at every place of the picture.
#include "picture.h"

#include "level_plot.h"

#include <algorithm>
#include <cmath>

namespace spectrogram
{
namespace
{

// The levels of a panel's cells in dB, 0 being a tone of full scale.
std::vector<double> levels(const Analysis& analysis, const Panel& panel)
{
    // A complex tone leaves half its amplitude in its bin, a real one a quarter in each of two
    // bins, which are one at zero and at half the sample rate.
    const std::size_t bins = analysis.shape.bins();
    std::vector<double> decibels;
    for (std::size_t i = 0; i < panel.cells.size(); ++i) {
        const int k = static_cast<int>(i % bins);
        const bool single = analysis.shape.iq || k == 0 || 2 * k == analysis.shape.length;
        const double gain = single ? 4 : 16;
        decibels.push_back(std::max(examples::lowestLevel, 10 * std::log10(gain * panel.cells[i])));
    }
    return decibels;
}

// The levels of a panel at any place, linear between the bins and between the cells.
class LevelMap
{
public:
    LevelMap(const Analysis& analysis, const Panel& panel)
        : shape_(analysis.shape), cells_(analysis.cellCount), levels_(levels(analysis, panel))
    {
    }

    double at(double cell, double bin) const
    {
        const double place = std::clamp(cell, 0.0, cells_ - 1.0);
        const int before = static_cast<int>(place);
        const int after = std::min(before + 1, cells_ - 1);
        return std::lerp(inCell(before, bin), inCell(after, bin), place - before);
    }

    double strongest() const { return std::ranges::max(levels_); }

private:
    double inCell(int cell, double bin) const
    {
        const double below = std::floor(bin);
        const int k = static_cast<int>(below);
        return std::lerp(of(cell, k), of(cell, k + 1), bin - below);
    }
    double of(int cell, int bin) const
    {
        return levels_[static_cast<std::size_t>(cell) * shape_.bins() + shape_.index(bin)];
    }

    FrameShape shape_;
    int cells_;
    std::vector<double> levels_;
};

} // namespace

examples::Canvas drawPicture(const Analysis& analysis, const std::string& title)
{
    examples::LevelPlot plot;
    plot.title = title;
    plot.subtitle = std::to_string(analysis.sampleRate) + " Hz, Hann frames of " +
                    std::to_string(analysis.shape.length) + " samples, hop " +
                    std::to_string(analysis.hop);
    const auto samples = static_cast<double>(analysis.samples);
    plot.seconds = samples / analysis.sampleRate;
    plot.lowestFrequency = analysis.shape.iq ? -analysis.sampleRate / 2.0 : 0;
    plot.highestFrequency = analysis.sampleRate / 2.0;

    std::vector<LevelMap> maps;
    for (const Panel& panel : analysis.panels) {
        plot.panels.push_back(panel.name);
        maps.emplace_back(analysis, panel);
        plot.strongest = std::max(plot.strongest, maps.back().strongest());
    }
    const auto frames = static_cast<double>(analysis.frames);
    const double highestBin = analysis.shape.length / 2.0;
    const double lowestBin = analysis.shape.iq ? -highestBin : 0;
    plot.level = [&](std::size_t panel, examples::Stretch time, examples::Stretch frequency) {
        const double frame = (time.middle() * samples - analysis.shape.length / 2.0) / analysis.hop;
        const double cell = (frame + 0.5) * analysis.cellCount / frames - 0.5;
        return maps[panel].at(cell, std::lerp(lowestBin, highestBin, frequency.middle()));
    };
    return drawLevelPlot(plot);
}

} // namespace spectrogram
