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
#include <array>
#include <chrono>
#include <cstdint>
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
template <typename Real> class Dct4Buffers
{
public:
    Dct4Buffers(int size, std::size_t planBytes)
    {
        const std::size_t bytes = static_cast<std::size_t>(size) * sizeof(Real);
        const std::size_t toTarget = wholePages(bytes) + gap;
        const std::size_t toBlock = toTarget + wholePages(bytes) + gap;
        memory.reset(static_cast<std::byte*>(::operator new(toBlock + planBytes, pageAligned)));
        source = {reinterpret_cast<Real*>(memory.get()), static_cast<std::size_t>(size)};
        target = {reinterpret_cast<Real*>(memory.get() + toTarget), source.size()};
        block = memory.get() + toBlock;
    }

    std::span<Real> destination(Placement placement) const
    {
        return placement == Placement::InPlace ? source : target;
    }

    std::span<Real> source;
    std::span<Real> target;
    std::byte* block = nullptr;

private:
    static constexpr std::size_t page = 4096;
    static constexpr std::size_t gap = 1344;
    static constexpr std::align_val_t pageAligned = std::align_val_t(page);

    struct Release {
        void operator()(std::byte* memory) const { ::operator delete(memory, pageAligned); }
    };

    static std::size_t wholePages(std::size_t bytes) { return (bytes + page - 1) / page * page; }

    std::unique_ptr<std::byte, Release> memory;
};

template <typename Real> struct Dct4Entrant {
    Contender contender;
    Draw<Real> draw; // the problems that it can be given
    double planning; // microseconds
};

inline constexpr int largestPatientSize = 1 << 14; // beyond it FFTW plans with FFTW_MEASURE

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
    const Names names = dct4ContenderNames();
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
    const Dct4Buffers<Real> buffers(size, dct4PlanBytes<Real>(size));
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
