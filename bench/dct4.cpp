// The series of the DCT-IV.
//
// Who is called, and how: the calls below are what is timed.
//
// Ours      the transform with its plan, which lies in a block of the caller.
// FFTW      fftw_execute on a plan for these very arrays, r2r of the kind FFTW_REDFT11. It keeps
//           its input, which is the default, and returns twice what ours does.
//
// A row is a size N: what the contenders take, how this grows with N log2 N, how far ours is from
// the limit of scalar code, how exact the contenders are and how long they plan.
//
// A contender that is wrong ends the run before it is timed.

#include "clock.h"
#include "dct4_kernels.h"
#include "dct4_reference.h"
#include "extras.h"
#include "families.h"
#include "fftw_plans.h"
#include "input.h"
#include "kernel_work.h"
#include "means.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

// The arrays begin a third of a page apart, so that those of small sizes never have elements a
// multiple of 4096 bytes apart, where a load can be taken to depend on a store that it has nothing
// to do with. Larger sizes have them whatever one does.
template <typename Real> struct Dct4Buffers {
    Dct4Buffers(int size, std::size_t planBytes)
    {
        constexpr std::size_t page = 4096, gap = 1344;
        const std::size_t step = (size * sizeof(Real) + page - 1) / page * page + gap;
        memory.reset(std::aligned_alloc(page, (2 * step + planBytes + page - 1) / page * page));
        if (!memory)
            throw std::bad_alloc();
        auto* const bytes = static_cast<std::byte*>(memory.get());
        source = {reinterpret_cast<Real*>(bytes), static_cast<std::size_t>(size)};
        target = {reinterpret_cast<Real*>(bytes + step), source.size()};
        block = bytes + 2 * step;
    }
    std::span<Real> destination(Placement placement) const
    {
        return placement == Placement::InPlace ? source : target;
    }

    std::unique_ptr<void, void (*)(void*)> memory{nullptr, std::free};
    std::span<Real> source, target;
    std::byte* block = nullptr;
};

template <typename Real> struct Dct4Entrant {
    Contender contender;
    Draw<Real> draw; // the problems that it can be given
    double planning; // microseconds
};

inline constexpr int largestPatientSize = 1 << 14; // beyond it FFTW plans with FFTW_MEASURE

// The median of some calls.
template <typename Call> double microseconds(int calls, Call call)
{
    std::vector<double> times;
    for (int i = 0; i < calls; ++i) {
        const auto start = std::chrono::steady_clock::now();
        call();
        times.push_back(
            std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
                .count());
    }
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
std::vector<Dct4Entrant<Real>> dct4Entrants(const Dct4Buffers<Real>& buffers, int size,
                                            const Options& options)
{
    Real* const source = buffers.source.data();
    Real* const destination = buffers.destination(options.placement).data();
    typename Dct4<Real>::Spec* spec = nullptr;
    const double planning =
        microseconds(7, [&] { require(Dct4<Real>::plan(&spec, size, buffers.block), size); });
    std::vector<Dct4Entrant<Real>> all = {
        {contender("ours", [=] { Dct4<Real>::transform(source, destination, spec); }),
         problems<Real>(size, 1), planning}};
    const bool isPatient = !options.quick && size <= largestPatientSize;
    for (const FftwVariant& variant : fftwVariants) {
        FftwPlan<Real> plan;
        const double its = microseconds(1, [&] {
            plan = planFftw<Real>(Fftw<Real>::realToReal, size, source, destination, FFTW_REDFT11,
                                  (isPatient ? FFTW_PATIENT : FFTW_MEASURE) | variant.flags);
        });
        all.push_back({contender(variant.name, [=] { Fftw<Real>::execute(plan.get()); }),
                       problems<Real>(size, 2), its});
    }
    return all;
}

constexpr std::size_t firstPeer = 1;

// Of the accuracy: about so many outputs.
constexpr int outputsJudged = 4096;
constexpr int mostTrials = 64;

// Of a repetition, for each point. The largest sizes are called a few times in a row, so that they
// find in the caches what they left there and not what another contender did.
constexpr double secondsAPoint = 4e-8;

// Where neither the call nor the caches decide.
constexpr SizeRange middle = {.first = 64, .last = 2048};

Layout layout()
{
    const Names names = {"ours", fftwVariants[0].name, fftwVariants[1].name};
    const Extra planning = {
        "microseconds to plan", "microseconds to plan", "planning", names, 2, "%.1f"};
    std::vector<Extra> extras = {growthExtra(names)};
    std::ranges::copy(limitExtras(names), std::back_inserter(extras));
    extras.push_back(errorExtra(names));
    extras.push_back(planning);
    return {.size = "size",
            .sizes = {{.name = "N", .width = 8}},
            .contenders = names,
            .firstPeer = firstPeer,
            .ranges = {middle},
            .extras = extras};
}

template <typename Real>
double errorOf(const Dct4Entrant<Real>& entrant, const Dct4Buffers<Real>& buffers, int size,
               Placement placement)
try {
    const int trials = std::clamp(outputsJudged / size, 1, mostTrials);
    return relativeRmsError<Real>(entrant.contender, entrant.draw, buffers.source,
                                  buffers.destination(placement), trials);
} catch (const std::runtime_error& failure) {
    throw std::runtime_error(failure.what() + (" at size " + std::to_string(size)));
}

template <typename Real> Row measureSize(int size, const Options& options)
{
    std::int32_t planBytes = 0;
    require(Dct4<Real>::planBytes(size, &planBytes), size);
    const Dct4Buffers<Real> buffers(size, static_cast<std::size_t>(planBytes));
    std::vector<Contender> contenders;
    std::vector<double> errors;
    std::vector<double> planning;
    for (const Dct4Entrant<Real>& entrant : dct4Entrants(buffers, size, options)) {
        contenders.push_back(entrant.contender);
        errors.push_back(errorOf(entrant, buffers, size, options.placement));
        planning.push_back(entrant.planning);
    }

    fillForTiming<Real>(buffers.source, options.placement);
    const double seconds = std::max(options.seconds, size * secondsAPoint);
    const TimingsAndCycles found = measureInCycles(contenders, options.repetitions, seconds);
    std::vector<std::vector<double>> extras = {growth(found.timings, firstPeer, size)};
    std::ranges::copy(overLimit(found, firstPeer, dct4Work(size)), std::back_inserter(extras));
    extras.push_back(errors);
    extras.push_back(planning);
    return {.sizes = {size}, .timings = found.timings, .extras = extras};
}

template <typename Real> Series series(const Options& options)
{
    return {.name = std::is_same_v<Real, float> ? "DCT4_32f" : "DCT4_64f",
            .layout = layout(),
            .sizes = options.sizes,
            .measure = [=](int size) { return measureSize<Real>(size, options); }};
}

} // namespace

std::vector<std::string> dct4Method(const Options& options)
{
    const std::string effort =
        options.quick
            ? "FFTW_MEASURE"
            : "FFTW_PATIENT to " + std::to_string(largestPatientSize) + ", FFTW_MEASURE beyond";
    return {
        "DCT-IV    ours: a plan in a block of the caller; FFTW: r2r of the kind FFTW_REDFT11, "
        "input kept,",
        "          " + effort + ", scalar: FFTW_NO_SIMD;",
        "          growth: nanoseconds over N log2 N; error: of a direct sum to " +
            std::to_string(largestDirectDct4) + ",",
        "          beyond of a fast transform, both in binary80; planning: ours the median of 7, "
        "FFTW's once;",
        "          repetitions of sizes from 2^18 are longer"};
}

Series dct4Series(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
