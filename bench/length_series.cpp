// A transform that is wrong ends the run before it is timed.

#include "length_series.h"

#include "means.h"
#include "measure.h"

#include <algorithm>
#include <memory>
#include <span>
#include <stdexcept>

namespace rvn::bench
{

namespace
{

constexpr int trials = 64; // of the accuracy

Layout layout(const Names& contenders, std::size_t firstPeer)
{
    Names judged = contenders;
    judged.erase(judged.begin() + 1, judged.begin() + static_cast<std::ptrdiff_t>(firstPeer));
    return {.size = "length",
            .sizes = {{.name = "N", .width = 3}},
            .contenders = contenders,
            .firstPeer = firstPeer,
            .ranges = {},
            .extras = {{.title = "relative rms error",
                        .summary = "relative rms error over all of them",
                        .key = "error",
                        .names = judged,
                        .printed = 2, // ours and that of FFTW scalar
                        .format = "%.2e",
                        .meanName = "rms",
                        .mean = rootMeanSquare}}};
}

template <typename Real>
double errorOf(const Entrant<Real>& entrant, Buffers<Real>& buffers, int length,
               Placement placement)
try {
    const std::span<Real> destination =
        placement == Placement::InPlace ? buffers.source : buffers.target;
    return relativeRmsError<Real>(entrant.contender, entrant.draw, buffers.source, destination,
                                  trials);
} catch (const std::runtime_error& failure) {
    throw std::runtime_error(failure.what() + (" at length " + std::to_string(length)));
}

// One input for all: what the first contender takes for a half spectrum is one for the others too.
// In place: zeros, for the reason that input.h gives.
template <typename Real>
void fillSource(Buffers<Real>& buffers, const Entrant<Real>& first, Placement placement)
{
    Random random(seed);
    buffers.source.fill(0);
    if (placement == Placement::OutOfPlace)
        std::ranges::copy(first.draw(random).input, buffers.source.begin());
}

template <typename Real>
Row measureLength(const LengthTransform<Real>& transform, Buffers<Real>& buffers, int length,
                  const Options& options)
{
    const Entrants<Real> entrants = transform.entrants(buffers, length);
    std::vector<Contender> contenders;
    std::vector<double> errors;
    for (const Entrant<Real>& entrant : entrants) {
        const double error = errorOf(entrant, buffers, length, options.placement);
        if (contenders.empty() || contenders.size() >= transform.firstPeer)
            errors.push_back(error);
        contenders.push_back(entrant.contender);
    }
    fillSource(buffers, entrants.front(), options.placement);
    return {.sizes = {length},
            .timings = measure(contenders, options.repetitions, options.seconds),
            .extras = {errors}};
}

// Every contender takes length 2.
template <typename Real>
Names namesOf(const LengthTransform<Real>& transform, Buffers<Real>& buffers)
{
    Names names;
    for (const Entrant<Real>& entrant : transform.entrants(buffers, shortestLength))
        names.push_back(entrant.contender.name);
    return names;
}

} // namespace

template <typename Real>
Series lengthSeries(const LengthTransform<Real>& transform, const Options& options)
{
    const auto buffers = std::make_shared<Buffers<Real>>();
    return {
        .name = transform.name,
        .layout = layout(namesOf(transform, *buffers), transform.firstPeer),
        .sizes = options.lengths,
        .measure = [=](int length) { return measureLength(transform, *buffers, length, options); }};
}

template Series lengthSeries(const LengthTransform<float>&, const Options&);
template Series lengthSeries(const LengthTransform<double>&, const Options&);

} // namespace rvn::bench
