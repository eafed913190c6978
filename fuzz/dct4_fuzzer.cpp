// The DCT-IV: the size query at every 32-bit size; plans up to 2^16 points and up to 2^16 + 1 of
// the uneven sizes, these with one element more in each array, in blocks of any alignment and
// content and in those of the allocating initialiser; their transforms and their release. Not asked
// for: what the header leaves unchecked.

#include "arrays.h"
#include "dct4_kernels.h"
#include "dct4_reference.h"

#include <bit>
#include <cstdint>
#include <map>
#include <optional>

namespace rvn::fuzz
{

namespace
{

constexpr std::int32_t untouched = -4711;
constexpr int largestPlanned = 1 << 16;

bool isPowerOfTwo(std::int64_t size)
{
    return size > 1 && std::has_single_bit(static_cast<std::uint64_t>(size));
}

bool isUneven(std::int32_t size)
{
    return size > 8 && isPowerOfTwo(std::int64_t{size} - 1);
}

// The long ones less often: their plans take a hundred times as long.
constexpr int exponents[] = {1, 2, 3, 4, 5, 6,  7,  8,  9,  10, 11, 12, 1, 2,
                             3, 4, 5, 6, 7, 8,  9,  10, 11, 12, 1,  2,  3, 4,
                             5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

std::int32_t drawnSize(FuzzedDataProvider& input)
{
    switch (input.ConsumeIntegralInRange(0, 4)) {
    case 4:
        return input.ConsumeIntegral<std::int32_t>();
    case 3:
        return (1 << input.ConsumeIntegralInRange(0, 30)) + input.ConsumeIntegralInRange(-33, 33);
    case 2:
        return (1 << std::max(3, input.PickValueInArray(exponents))) + 1;
    default:
        return 1 << input.PickValueInArray(exponents);
    }
}

template <typename Real> class Plans
{
    using D = tests::Dct4<Real>;
    using Spec = typename D::Spec;

public:
    explicit Plans(FuzzedDataProvider& input)
        : input_(input), size_(drawnSize(input)),
          who_((sizeof(Real) == 4 ? "DCT-IV 32f of " : "DCT-IV 64f of ") + std::to_string(size_))
    {
    }

    void fuzz()
    {
        const auto bytes = bytesOf(size_);
        if (!bytes)
            refuse();
        else if (size_ <= largestPlanned + isUneven(size_))
            planAndRun(*bytes);
    }

private:
    // What the query tells; empty when it refuses.
    std::optional<std::int32_t> bytesOf(std::int32_t size) const
    {
        constexpr std::int32_t largest = sizeof(Real) == 4 ? 1 << 27 : 1 << 26;
        std::int32_t bytes = untouched;
        const RvnStatus status = D::getSize(size, &bytes);
        require(status == (bytes == untouched ? RvnStatusSizeError : RvnStatusNoError), who_,
                ": the query writes exactly when it succeeds");
        const bool isEither = isPowerOfTwo(size) || isUneven(size);
        if (!isEither || size <= largest + 1)
            require((bytes > 0) == isEither, who_, ": the query serves the documented sizes");
        return status == RvnStatusNoError ? std::optional(bytes) : std::nullopt;
    }

    void refuse()
    {
        if (isPowerOfTwo(size_) || isUneven(size_))
            return;
        auto* const before = reinterpret_cast<Spec*>(&size_);
        Spec* spec = before;
        require(D::initAlloc(&spec, size_) == RvnStatusSizeError && spec == before, who_,
                " is refused");
        // The initialiser finds out as it goes, and writes more than a plan of the next size takes.
        if (size_ > largestPlanned / 4)
            return;
        const int near =
            4 * static_cast<int>(std::bit_ceil(static_cast<unsigned>(std::max(8, size_))));
        const Placement block(blocks[0], *bytesOf(near), input_);
        require(D::init(&spec, size_, block.bytes().data()) == RvnStatusSizeError && spec == before,
                who_, " is refused");
        block.requireNothingWrittenAround(who_);
    }

    Spec* planned(const Placement& block) const
    {
        Spec* spec = nullptr;
        require(D::init(&spec, size_, block.bytes().data()) == RvnStatusNoError, who_,
                " is planned");
        const auto* const address = reinterpret_cast<const std::byte*>(spec);
        require(address >= block.bytes().data() && address < &block.bytes().back(), who_,
                ": the handle is inside the block");
        block.requireNothingWrittenAround(who_);
        return spec;
    }

    Spec* planned() const
    {
        Spec* spec = nullptr;
        require(D::initAlloc(&spec, size_) == RvnStatusNoError, who_, " is planned");
        return spec;
    }

    // One plan, then the same in another block, in the same one or in the allocator's.
    void planAndRun(std::int32_t bytes)
    {
        const Placement block(blocks[0], bytes, input_);
        const Placement other(blocks[1], bytes, input_);
        block.fill(input_.ConsumeIntegral<std::uint8_t>());
        other.fill(input_.ConsumeIntegral<std::uint8_t>());
        const int next = input_.ConsumeIntegralInRange(0, 2);
        const std::size_t count = size_ + isUneven(size_);
        const auto output = input_.ConsumeIntegralInRange<int>(0, size_ - 1);
        const auto x = drawnValues<Real>(input_, count);
        const Arrays<Real> arrays(who_, x, count);

        Spec* const first = planned(block);
        const std::vector before(block.bytes().begin(), block.bytes().end());
        const auto X = transformed(arrays, first);
        block.requireNothingWrittenAround(who_);
        if (!isUneven(size_))
            requireTheSum(x, X, output);
        if (!isUneven(size_) && size_ <= 32)
            require(std::ranges::equal(before, block.bytes()), who_, " only reads its plan");

        Spec* const second = next == 0 ? planned(other) : next == 1 ? planned(block) : planned();
        require(tests::haveSameBits(transformed(arrays, second), X), who_,
                ": every plan gives the same bits");
        require(tests::haveSameBits(transformed(arrays, first), X), who_,
                ": a plan does not know of others");
        if (next == 2)
            require(D::free(second) == RvnStatusNoError, who_, " is released");
        other.requireNothingWrittenAround(who_);
        block.requireNothingWrittenAround(who_);
    }

    std::vector<Real> transformed(const Arrays<Real>& arrays, Spec* spec)
    {
        return arrays.result(
            input_, [&](const Real* src, Real* dst) { return D::run(src, dst, spec); },
            isUneven(size_));
    }

    // One output beside its definition, when no element is so large that it drowns others.
    void requireTheSum(const std::vector<Real>& x, const std::vector<Real>& X, int output) const
    {
        static std::map<int, tests::CosineTable> tables;
        if (!std::ranges::all_of(x, [](Real value) { return std::fabs(value) <= 1; }))
            return;
        long double energy = 0;
        for (const Real value : x)
            energy += static_cast<long double>(value) * value;
        const auto& cosines = tables.try_emplace(size_, 8 * size_).first->second;
        const long double error = X[output] - tests::dct4Output(x, output, cosines);
        const long double tolerance = 16 * std::numeric_limits<Real>::epsilon();
        const long double tiny = static_cast<long double>(size_) * std::numeric_limits<Real>::min();
        require(std::fabs(error) <= tolerance * std::sqrt(energy) + tiny, who_, ": output ", output,
                " is off by ", error);
    }

    static inline const std::array<tests::GuardedMemory, 2> blocks{
        tests::GuardedMemory(3 * largestPlanned * sizeof(Real)),
        tests::GuardedMemory(3 * largestPlanned * sizeof(Real))};

    FuzzedDataProvider& input_;
    std::int32_t size_;
    std::string who_;
};

} // namespace

} // namespace rvn::fuzz

// The input chooses the precision first.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    if (input.ConsumeBool())
        rvn::fuzz::Plans<float>(input).fuzz();
    else
        rvn::fuzz::Plans<double>(input).fuzz();
    return 0;
}
