// peak_power.cpp - see peak_power.h.
#include "peak_power.h"

#include "status.h"
#include "transmitter.h"

#include <algorithm>
#include <numbers>
#include <vector>

namespace ofdm
{
namespace
{

constexpr std::size_t symbols = 20000;
constexpr int oversampling = 4;

// Moves the samples of a spectrum a part of a sample ahead in time.
class Shift
{
public:
    explicit Shift(double samples)
    {
        for (std::size_t bin = 0; bin < symbolLength; ++bin) {
            const double frequency =
                static_cast<double>(bin) - (bin < symbolLength / 2 ? 0 : symbolLength);
            factors_[bin] = unit(2 * std::numbers::pi * frequency * samples / symbolLength);
        }
    }

    Spectrum operator()(Spectrum spectrum) const
    {
        for (std::size_t bin = 0; bin < symbolLength; ++bin)
            spectrum[bin] = times(spectrum[bin], factors_[bin]);
        return spectrum;
    }

private:
    std::array<Complex, symbolLength> factors_;
};

} // namespace

double peakToMean(const Subcarriers& subcarriers, Modulation modulation)
{
    std::vector<Shift> shifts;
    for (int i = 0; i < oversampling; ++i)
        shifts.emplace_back(static_cast<double>(i) / oversampling);

    const Constellation constellation(modulation);
    Transmitter transmitter(subcarriers, constellation);
    Random random(0, dataStream);
    std::vector<std::uint8_t> labels(subcarriers.data.size());
    std::vector<float> peaks;
    double sum = 0;
    for (std::size_t n = 0; n < symbols; ++n) {
        for (std::uint8_t& label : labels)
            label = static_cast<std::uint8_t>(random.byte() & (constellation.points() - 1));
        const Spectrum spectrum = transmitter.spectrum(labels);
        float peak = 0;
        for (const Shift& shift : shifts) {
            Spectrum samples = shift(spectrum);
            examples::check(
                rvngDFTInv_CToC_64_32fc(samples.data(), samples.data(), RvnScaleBySqrtN));
            for (const Complex sample : samples) {
                peak = std::max(peak, power(sample));
                sum += power(sample);
            }
        }
        peaks.push_back(peak);
    }
    const auto place = peaks.begin() + static_cast<std::ptrdiff_t>(symbols - symbols / 1000);
    std::nth_element(peaks.begin(), place, peaks.end());
    return *place * static_cast<double>(symbols * oversampling * symbolLength) / sum;
}

} // namespace ofdm
