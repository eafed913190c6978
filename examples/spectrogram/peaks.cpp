// peaks.cpp - local maxima of the mean spectrum, each fitted with the response of a single tone.
//
// With H the window's response and f in bins, a complex tone a exp(...) leaves |a| |H(k - f)| in
// bin k. A real tone, seen from the frame's centre, is A cos(phase) times an even plus A sin(phase)
// times an odd part, which leave in bin k
//
//     A cos(phase) (H(k - f) + H(k + f)) / 2    in its real part,
//     A sin(phase) (H(k - f) - H(k + f)) / 2    in its imaginary part.
//
// Summing the squares of the two parts apart over the frames keeps these patterns as they are, the
// phases only weigh them. So the f whose patterns fit best the three bins about a maximum, in the
// sense of least squares, is exact for a lone tone and frames of three or more samples, even where
// the tone meets its own image near zero and near half the sample rate. A lone complex tone's two
// largest bins alone would do (Grandke 1983); the image is what asks for the fit.
//
// Where tone and image nearly cancel in one part, its pattern is weak and fits next to anything
// with a huge amplitude. There the weights of the parts are held to those that the phases of all
// frames allow a tone at f, and no tone is louder than the power about its maximum supports.
#include "peaks.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>

namespace
{

constexpr double weakestPeak = 1e-6; // of the strongest one's power
constexpr double weakPattern = 0.05; // of the plain tone's square, where it is 1/4 without image

// Least squares of measured magnitudes against a pattern.
struct Match {
    double product = 0; // sum of magnitude times |pattern|
    double square = 0;  // sum of pattern^2

    void add(double power, double pattern)
    {
        product += std::sqrt(std::max(power, 0.0)) * std::abs(pattern);
        square += pattern * pattern;
    }
    bool visible() const { return square > 1e-6; }
    double amplitude() const { return visible() ? product / square : 0; }
    double explained() const { return visible() ? product * product / square : 0; }
};

// Both parts as one pattern, share being that of the even part in the tone's power.
Match together(const Match& even, const Match& odd, double share)
{
    return {std::sqrt(share) * even.product + std::sqrt(1 - share) * odd.product,
            share * even.square + (1 - share) * odd.square};
}

// The response of a frame without a window: the mean of cos(2 pi x (n - (N - 1) / 2) / N).
double plainResponse(int length, double x)
{
    using std::numbers::pi;
    const double denominator = length * std::sin(pi * x / length);
    if (std::abs(denominator) > 1e-9)
        return std::sin(pi * x) / denominator;
    const bool oddTurn = std::lround(x / length) % 2 != 0; // x is a multiple of N
    return oddTurn && length % 2 == 0 ? -1.0 : 1.0;
}

// The mean over n of w[n] exp(2 pi i x (n - (N - 1) / 2) / N): what a tone of amplitude 1 that lies
// x bins beside a bin leaves in it. The window is 1/2 - exp(+...)/4 - exp(-...)/4, and half a turn
// lies between n + 1/2 and the frame's centre: the three terms have the same sign there.
double hannResponse(int length, double x)
{
    return plainResponse(length, x) / 2 + plainResponse(length, x - 1) / 4 +
           plainResponse(length, x + 1) / 4;
}

class ToneFit
{
public:
    ToneFit(const Analysis& analysis, const Panel& panel)
        : panel_(panel), shape_(analysis.shape), frames_(static_cast<double>(analysis.frames)),
          advance_(static_cast<double>(analysis.hop) / analysis.shape.length)
    {
    }

    double power(int bin) const { return panel_.power[shape_.index(bin)]; }

    // How much of the power about a bin a tone at f explains, and that tone's amplitude.
    std::pair<double, double> at(int bin, double f) const
    {
        Match whole, even, odd;
        double measured = 0;
        for (int k = bin - 1; k <= bin + 1; ++k) {
            const double tone = hannResponse(shape_.length, k - f);
            whole.add(power(k), tone);
            measured += power(k);
            if (shape_.iq)
                continue;
            const double image = hannResponse(shape_.length, k + f);
            const double evenPower = panel_.evenPower[shape_.index(k)];
            even.add(evenPower, (tone + image) / 2);
            odd.add(power(k) - evenPower, (tone - image) / 2);
        }
        if (shape_.iq)
            return {whole.explained(), whole.amplitude()};

        // Without image the measured power is a quarter of the tone's; a factor of 2 is left for
        // the phases the frames happen to see.
        const double loudest = std::sqrt(2 * 4 * measured / whole.square);
        double explained = even.explained() + odd.explained();
        double amplitude = std::hypot(even.amplitude(), odd.amplitude());
        const bool bothVisible = even.visible() && odd.visible();
        const double weaker = std::min(even.square, odd.square);
        if (bothVisible && amplitude > 0 && weaker < weakPattern * whole.square) {
            const double share = std::pow(even.amplitude() / amplitude, 2);
            const double spread = shareSpread(f);
            const double possible = std::clamp(share, (1 - spread) / 2, (1 + spread) / 2);
            if (possible != share) {
                const Match both = together(even, odd, possible);
                explained = both.explained();
                amplitude = both.amplitude();
            }
        }
        return {explained, std::min(amplitude, loudest)};
    }

    // The f within a bin of the maximum that explains most: a search on ever finer grids. Two bins
    // cannot tell: there the maximum itself is returned.
    double refine(int bin) const
    {
        double best = bin;
        if (shape_.length == 2)
            return best;
        for (double step = 0.1; step > 1e-7; step /= 10) {
            const double middle = best;
            double most = -1;
            for (int i = -10; i <= 10; ++i) {
                double f = middle + i * step;
                if (!shape_.iq)
                    f = std::clamp(f, 0.0, shape_.length / 2.0);
                if (const double explained = at(bin, f).first; explained > most) {
                    most = explained;
                    best = f;
                }
            }
        }
        return best;
    }

private:
    // The mean of cos(phase)^2 over the frames is within half of this about 1/2: 1 if they all see
    // the same phase, next to 0 if they see many of them.
    double shareSpread(double f) const
    {
        const double turn = 2 * std::numbers::pi * f * advance_;
        const double denominator = frames_ * std::sin(turn);
        if (std::abs(denominator) < 1e-9)
            return 1;
        return std::min(std::abs(std::sin(frames_ * turn) / denominator), 1.0);
    }

    const Panel& panel_;
    FrameShape shape_;
    double frames_;
    double advance_; // from one frame to the next, in frames
};

} // namespace

std::vector<Peak> strongestPeaks(const Analysis& analysis, const Panel& panel, int sampleRate,
                                 std::size_t mostPeaks)
{
    const int length = analysis.shape.length;
    const bool iq = analysis.shape.iq;
    const ToneFit fit(analysis, panel);
    const int lowest = iq ? -(length / 2) : 0;
    const int highest = iq ? lowest + length - 1 : length / 2;

    std::vector<int> maxima;
    for (int k = lowest; k <= highest; ++k)
        if (fit.power(k) > 0 && fit.power(k) >= fit.power(k + 1) &&
            (fit.power(k) > fit.power(k - 1) || (k == lowest && !iq)))
            maxima.push_back(k);
    std::ranges::sort(maxima, std::greater<>(), [&](int k) { return fit.power(k); });
    const double weakest = maxima.empty() ? 0 : weakestPeak * fit.power(maxima.front());
    std::erase_if(maxima, [&](int k) { return fit.power(k) <= weakest; });
    if (maxima.size() > mostPeaks)
        maxima.resize(mostPeaks);

    std::vector<Peak> peaks;
    for (const int k : maxima) {
        double f = fit.refine(k);
        if (iq)
            f -= length * std::floor(f / length + 0.5);
        peaks.push_back({f * sampleRate / length, fit.at(k, f).second});
    }
    std::ranges::sort(peaks, std::greater<>(), &Peak::amplitude);
    return peaks;
}
