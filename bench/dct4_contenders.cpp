// Who is called, and how: the calls below are what is timed.
//
// Ours      the transform with its plan, which lies in a block of the caller.
// FFTW      fftw_execute on a plan for these very arrays, r2r of the kind FFTW_REDFT11. It keeps
//           its input, which is the default, and returns twice what ours does.

#include "dct4_contenders.h"

#include "dct4_kernels.h"
#include "dct4_reference.h"
#include "fftw_plans.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace
{

using WallClock = std::chrono::steady_clock;

template <typename Call> double microseconds(Call call)
{
    const WallClock::time_point start = WallClock::now();
    call();
    return std::chrono::duration<double, std::micro>(WallClock::now() - start).count();
}

// The median of a few.
template <typename Call> double usualMicroseconds(Call call)
{
    std::array<double, 7> times;
    std::ranges::generate(times, [&] { return microseconds(call); });
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void require(RvnStatus status, int size)
{
    if (status != RvnStatusNoError)
        throw std::runtime_error("our plan of size " + std::to_string(size) + " is refused");
}

template <typename Real> Draw<Real> problems(int size, int factor)
{
    return [=](Random& random) {
        const std::vector<Real> signal = drawn<Real>(size, random);
        Numbers output = referenceDct4({signal.begin(), signal.end()});
        for (long double& value : output)
            value *= factor;
        return Problem<Real>{signal, output};
    };
}

template <typename Real>
Dct4Entrant<Real> ours(const Real* source, Real* destination, int size, void* block)
{
    using Api = Dct4<Real>;
    typename Api::Spec* spec = nullptr;
    const double planning =
        usualMicroseconds([&] { require(Api::plan(&spec, size, block), size); });
    return {.contender = contender("ours", [=] { Api::transform(source, destination, spec); }),
            .draw = problems<Real>(size, 1),
            .planning = planning};
}

template <typename Real>
Dct4Entrant<Real> fftw(const FftwVariant& variant, unsigned effort, Real* source, Real* destination,
                       int size)
{
    using Api = Fftw<Real>;
    FftwPlan<Real> plan;
    const double planning = microseconds([&] {
        plan = planFftw<Real>(Api::realToReal, size, source, destination, FFTW_REDFT11,
                              effort | variant.flags);
    });
    return {.contender = contender(variant.name, [=] { Api::execute(plan.get()); }),
            .draw = problems<Real>(size, 2),
            .planning = planning};
}

} // namespace

template <typename Real> std::size_t dct4PlanBytes(int size)
{
    std::int32_t bytes = 0;
    require(Dct4<Real>::planBytes(size, &bytes), size);
    return static_cast<std::size_t>(bytes);
}

Names dct4ContenderNames()
{
    Names names = {"ours"};
    for (const FftwVariant& variant : fftwVariants)
        names.push_back(variant.name);
    return names;
}

template <typename Real>
std::vector<Dct4Entrant<Real>> dct4Entrants(const Dct4Buffers<Real>& buffers, int size,
                                            const Options& options)
{
    Real* const source = buffers.source.data();
    Real* const destination = buffers.destination(options.placement).data();
    const bool isPatient = !options.quick && size <= largestPatientSize;

    std::vector<Dct4Entrant<Real>> all = {ours(source, destination, size, buffers.block)};
    for (const FftwVariant& variant : fftwVariants)
        all.push_back(
            fftw(variant, isPatient ? FFTW_PATIENT : FFTW_MEASURE, source, destination, size));
    return all;
}

template std::size_t dct4PlanBytes<float>(int);
template std::size_t dct4PlanBytes<double>(int);
template std::vector<Dct4Entrant<float>> dct4Entrants(const Dct4Buffers<float>&, int,
                                                      const Options&);
template std::vector<Dct4Entrant<double>> dct4Entrants(const Dct4Buffers<double>&, int,
                                                       const Options&);
