// A transform that is wrong ends the run before it is timed.

#include "length_series.h"

#include "clock.h"
#include "extras.h"

#include <algorithm>
#include <memory>
#include <span>
#include <stdexcept>
#include <type_traits>

namespace
{

constexpr int trials = 64; // of the accuracy

// Kernels of binary32 convert.
template <typename Real> constexpr bool converts = std::is_same_v<Real, float>;

template <typename Real> Layout layout(const Names& contenders, std::size_t firstPeer)
{
    const Names names = judged(contenders, firstPeer);
    std::vector<Extra> extras = limitExtras(names);
    extras.push_back(coresExtra(converts<Real>));
    extras.push_back(errorExtra(names));
    return {.size = "length",
            .sizes = {{.name = "N", .width = 3}},
            .contenders = contenders,
            .firstPeer = firstPeer,
            .ranges = {},
            .extras = extras};
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
    const TimingsAndCycles found =
        measureInCycles(contenders, options.repetitions, options.seconds);
    const Work work = transform.work(length);
    std::vector<std::vector<double>> extras = overLimit(found, transform.firstPeer, work);
    extras.push_back(overCores(found, work, converts<Real>));
    extras.push_back(errors);
    return {.sizes = {length}, .timings = found.timings, .extras = extras};
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
        .layout = layout<Real>(namesOf(transform, *buffers), transform.firstPeer),
        .sizes = options.lengths,
        .measure = [=](int length) { return measureLength(transform, *buffers, length, options); }};
}

template Series lengthSeries(const LengthTransform<float>&, const Options&);
template Series lengthSeries(const LengthTransform<double>&, const Options&);
