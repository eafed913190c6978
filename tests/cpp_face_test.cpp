// The C++ header: every function gives, bit for bit, what the C function gives; what does not fit
// is refused, with nothing written. (consumers/face_refused.cpp has what does not compile.)

#include "rvngenmx.hpp"

#include "kernels.h"

#include <array>
#include <complex>
#include <type_traits>
#include <vector>

namespace rvn::tests
{

namespace
{

using rvng::Ccs;
using rvng::Pack;
using rvng::Perm;
using rvng::Scale;
using rvng::Status;

// A function of the header for every length or order, by its place in the table.
template <typename T> using Call = Status (*)(const T*, T*, Scale);

template <typename T, std::size_t first, std::size_t count, typename CallOf>
std::vector<Call<T>> everyCall(CallOf callOf)
{
    return [&callOf]<std::size_t... i>(std::index_sequence<i...>)
    {
        return std::vector<Call<T>>{callOf(std::integral_constant<std::size_t, first + i>{})...};
    }
    (std::make_index_sequence<count>{});
}

template <typename T> std::vector<Call<T>> everyLength(auto callOf)
{
    return everyCall<T, 2, 63>(callOf);
}

template <std::size_t N, typename T> std::span<T, N> extent(T* x)
{
    return std::span<T, N>(x, N);
}

constexpr Scale everyScale[] = {Scale::ForwardByN, Scale::InverseByN, Scale::BySqrtN, Scale::None};

RvnScaleFlag flagOf(Scale scale)
{
    return static_cast<RvnScaleFlag>(scale);
}

// An array that no transform has filled.
template <typename T> std::vector<T> unwritten(std::size_t size)
{
    return std::vector<T>(size, T{std::numeric_limits<float>::quiet_NaN()});
}

template <typename T, typename U>
void expectSameBits(const std::vector<T>& ours, const std::vector<U>& theirs,
                    const std::string& name)
{
    ASSERT_EQ(ours.size() * sizeof(T), theirs.size() * sizeof(U)) << name;
    EXPECT_EQ(std::memcmp(ours.data(), theirs.data(), theirs.size() * sizeof(U)), 0) << name;
}

template <typename T> struct CppFace : testing::Test {
};
TYPED_TEST_SUITE(CppFace, Reals);

// ---- What fits -------------------------------------------------------------------------------

TYPED_TEST(CppFace, ComplexTransformsAreTheKernels)
{
    using Complex = std::complex<TypeParam>;
    const auto forward = everyLength<Complex>([](auto length) {
        constexpr std::size_t N = length;
        return [](const Complex* x, Complex* X, Scale scale) {
            return rvng::dftForward<N>(extent<N>(x), extent<N>(X), scale);
        };
    });
    const auto inverse = everyLength<Complex>([](auto length) {
        constexpr std::size_t N = length;
        return [](const Complex* x, Complex* X, Scale scale) {
            return rvng::dftInverse<N>(extent<N>(x), extent<N>(X), scale);
        };
    });
    for (int N = 2; N <= 64; ++N) {
        const std::vector<TypeParam> parts = randomParts<TypeParam>(2 * N, N);
        std::vector<Complex> x;
        for (int n = 0; n < N; ++n)
            x.push_back({parts[2 * n], parts[2 * n + 1]});
        for (const Scale scale : everyScale)
            for (const bool isInverse : {false, true}) {
                const Kernel<TypeParam>& kernel =
                    kernelOf<TypeParam>(isInverse ? Transform::Inverse : Transform::Forward, N);
                const auto X = resultOf(kernel, parts.data(), flagOf(scale));
                auto out = unwritten<Complex>(N);
                EXPECT_EQ((isInverse ? inverse : forward)[N - 2](x.data(), out.data(), scale),
                          Status::NoError);
                expectSameBits(out, X, kernel.name);
                out = unwritten<Complex>(N);
                EXPECT_EQ(isInverse ? rvng::dftInverse(x, out, scale)
                                    : rvng::dftForward(x, out, scale),
                          Status::NoError);
                expectSameBits(out, X, kernel.name);
            }
    }
}

template <typename L, typename T>
void expectRealTransforms(Transform toLayout, Transform fromLayout)
{
    const auto forward = everyLength<T>([](auto length) {
        constexpr std::size_t N = length;
        return [](const T* x, T* X, Scale scale) {
            return rvng::dftForward<L, N>(extent<N>(x), extent<L::size(N)>(X), scale);
        };
    });
    const auto inverse = everyLength<T>([](auto length) {
        constexpr std::size_t N = length;
        return [](const T* X, T* y, Scale scale) {
            return rvng::dftInverse<L, N>(extent<L::size(N)>(X), extent<N>(y), scale);
        };
    });
    for (int N = 2; N <= 64; ++N) {
        const auto x = randomParts<T>(N, N);
        for (const Scale scale : everyScale) {
            const Kernel<T>& there = kernelOf<T>(toLayout, N);
            const auto X = resultOf(there, x.data(), flagOf(scale));
            auto spectrum = unwritten<T>(L::size(N));
            EXPECT_EQ(forward[N - 2](x.data(), spectrum.data(), scale), Status::NoError);
            expectSameBits(spectrum, X, there.name);
            spectrum = unwritten<T>(L::size(N));
            EXPECT_EQ(rvng::dftForward<L>(x, spectrum, scale), Status::NoError);
            expectSameBits(spectrum, X, there.name);

            const Kernel<T>& back = kernelOf<T>(fromLayout, N);
            const auto y = resultOf(back, X.data(), flagOf(scale));
            auto signal = unwritten<T>(N);
            EXPECT_EQ(inverse[N - 2](X.data(), signal.data(), scale), Status::NoError);
            expectSameBits(signal, y, back.name);
            signal = unwritten<T>(N);
            EXPECT_EQ(rvng::dftInverse<L>(X, signal, scale), Status::NoError);
            expectSameBits(signal, y, back.name);
        }
    }
}

TYPED_TEST(CppFace, RealTransformsAreTheKernels)
{
    expectRealTransforms<Ccs, TypeParam>(Transform::ToCCS, Transform::FromCCS);
    expectRealTransforms<Pack, TypeParam>(Transform::ToPack, Transform::FromPack);
    expectRealTransforms<Perm, TypeParam>(Transform::ToPerm, Transform::FromPerm);
}

TYPED_TEST(CppFace, HartleyTransformsAreTheKernels)
{
    const auto calls = everyLength<TypeParam>([](auto length) {
        constexpr std::size_t N = length;
        return [](const TypeParam* x, TypeParam* X, Scale scale) {
            return rvng::hartley<N>(extent<N>(x), extent<N>(X), scale);
        };
    });
    for (int N = 2; N <= 64; ++N) {
        const auto x = randomParts<TypeParam>(N, N);
        const Kernel<TypeParam>& kernel = kernelOf<TypeParam>(Transform::Hartley, N);
        for (const Scale scale : everyScale) {
            const auto X = resultOf(kernel, x.data(), flagOf(scale));
            auto out = unwritten<TypeParam>(N);
            EXPECT_EQ(calls[N - 2](x.data(), out.data(), scale), Status::NoError);
            expectSameBits(out, X, kernel.name);
            out = unwritten<TypeParam>(N);
            EXPECT_EQ(rvng::hartley(x, out, scale), Status::NoError);
            expectSameBits(out, X, kernel.name);
        }
    }
}

// The work memory of the calls below, of the size that the caller wants.
std::vector<std::byte> buffer;

TYPED_TEST(CppFace, WalshHadamardTransformsAreTheKernels)
{
    const auto calls = everyCall<TypeParam, 1, 13>([](auto constant) {
        constexpr std::size_t order = constant, N = std::size_t{1} << order;
        return [](const TypeParam* x, TypeParam* X, Scale scale) {
            return rvng::wht<order>(extent<N>(x), extent<N>(X), scale);
        };
    });
    const auto bufferedCalls = everyCall<TypeParam, 1, 13>([](auto constant) {
        constexpr std::size_t order = constant, N = std::size_t{1} << order;
        return [](const TypeParam* x, TypeParam* X, Scale scale) {
            return rvng::wht<order>(extent<N>(x), extent<N>(X), scale, buffer);
        };
    });
    for (int order = 1; order <= 13; ++order) {
        const Kernel<TypeParam>& kernel = kernelOf<TypeParam>(Transform::WalshHadamard, order);
        const auto x = randomParts<TypeParam>(kernel.length(), order);
        for (const Scale scale : everyScale) {
            const auto X = resultOf(kernel, x.data(), flagOf(scale));
            std::size_t bytes = 1;
            EXPECT_EQ(rvng::whtBufferSize<TypeParam>(order, bytes), Status::NoError);
            EXPECT_EQ(bytes, kernel.workElements() * sizeof(TypeParam));
            buffer.assign(bytes, std::byte{0xff});

            auto out = unwritten<TypeParam>(x.size());
            const auto expectResult = [&](Status status) {
                EXPECT_EQ(status, Status::NoError) << kernel.name;
                expectSameBits(out, X, kernel.name);
                out = unwritten<TypeParam>(x.size());
            };
            expectResult(calls[order - 1](x.data(), out.data(), scale));
            expectResult(bufferedCalls[order - 1](x.data(), out.data(), scale));
            expectResult(rvng::wht(x, out, scale));
            expectResult(rvng::wht(x, out, scale, buffer));
            if (bytes > 0) {
                buffer.pop_back();
                EXPECT_EQ(bufferedCalls[order - 1](x.data(), out.data(), scale), Status::SizeError);
                EXPECT_EQ(rvng::wht(x, out, scale, buffer), Status::SizeError);
                expectSameBits(out, unwritten<TypeParam>(x.size()), kernel.name);
            }
        }
    }
}

template <typename T> std::vector<T> dct4InC(const std::vector<T>& x)
{
    const auto run = [&x]<typename Spec>(Spec* spec, auto init, auto transform, auto free) {
        std::vector<T> X(x.size());
        EXPECT_EQ(init(&spec, static_cast<int>(x.size())), RvnStatusNoError);
        EXPECT_EQ(transform(x.data(), X.data(), spec), RvnStatusNoError);
        EXPECT_EQ(free(spec), RvnStatusNoError);
        return X;
    };
    if constexpr (std::is_same_v<T, float>)
        return run(static_cast<RvnDCT4Spec_32f*>(nullptr), rvngDCT4InitAlloc_32f, rvngDCT4_32f,
                   rvngDCT4Free_32f);
    else
        return run(static_cast<RvnDCT4Spec_64f*>(nullptr), rvngDCT4InitAlloc_64f, rvngDCT4_64f,
                   rvngDCT4Free_64f);
}

TYPED_TEST(CppFace, Dct4PlansAreThoseOfTheLibrary)
{
    using Plan = rvng::Dct4<TypeParam>;
    for (std::size_t N = 2; N <= 4096; N *= 2) {
        const auto x = randomParts<TypeParam>(static_cast<int>(N), static_cast<unsigned>(N));
        const auto X = dct4InC(x);
        const auto expectResult = [&](Plan& plan) {
            std::vector<TypeParam> out(N);
            EXPECT_TRUE(plan) << N;
            EXPECT_EQ(plan.size(), N);
            EXPECT_EQ(plan.run(x, out), Status::NoError) << N;
            expectSameBits(out, X, std::to_string(N));
            EXPECT_EQ(plan.run(x, std::span(out).first(N - 1)), Status::SizeError);
            EXPECT_EQ(plan.run(std::span(x).first(N - 1), out), Status::SizeError);
        };
        Plan allocated(N);
        expectResult(allocated);

        std::size_t bytes = 0;
        ASSERT_EQ(Plan::blockSize(N, bytes), Status::NoError);
        std::vector<std::byte> block(bytes);
        Plan inBlock(N, block);
        expectResult(inBlock);
        EXPECT_EQ(Plan(N, std::span(block).first(bytes - 1)).status(), Status::SizeError);

        Plan moved(std::move(allocated));
        expectResult(moved);
        Plan assigned(2);
        assigned = std::move(moved);
        expectResult(assigned);
        std::vector<TypeParam> out(N, 7);
        EXPECT_EQ(moved.status(), Status::NullPointer);
        EXPECT_EQ(moved.run(x, out), Status::NullPointer);
        EXPECT_EQ(out, std::vector<TypeParam>(N, 7));
    }
}

TYPED_TEST(CppFace, Dct4RefusesEverySizeThatIsNoServedPowerOfTwo)
{
    using Plan = rvng::Dct4<TypeParam>;
    for (const std::size_t N :
         {std::size_t{0}, std::size_t{1}, std::size_t{3}, std::size_t{9}, std::size_t{17},
          std::size_t{96}, 2 * Plan::largestSize, std::size_t{1} << 32, (std::size_t{1} << 32) + 2,
          std::size_t(-1)}) {
        Plan plan(N);
        EXPECT_FALSE(plan);
        EXPECT_EQ(plan.status(), Status::SizeError) << N;
        EXPECT_EQ(plan.size(), 0u);
        std::array<TypeParam, 2> x = {1, 2};
        EXPECT_EQ(plan.run(x, x), Status::NullPointer);
        std::size_t bytes = 5;
        EXPECT_EQ(Plan::blockSize(N, bytes), Status::SizeError) << N;
        EXPECT_EQ(bytes, 5u);
    }
    std::size_t bytes = 0;
    EXPECT_EQ(Plan::blockSize(Plan::largestSize, bytes), Status::NoError);
    EXPECT_EQ(Plan().status(), Status::NullPointer);
}

TEST(CppFace, LayoutsSayWhereTheBinsLie)
{
    const auto expectLayout = []<typename L>(L, Layout layout) {
        for (int N = 2; N <= 64; ++N) {
            EXPECT_EQ(L::size(N), std::size_t(slotCount(layout, N)));
            for (int k = 0; 2 * k <= N; ++k) {
                EXPECT_EQ(L::re(k, N), std::size_t(slotOf(layout, N, k == 0 ? 0 : 2 * k - 1)));
                EXPECT_EQ(rvng::hasIm(k, N), 0 < k && 2 * k < N);
                if (rvng::hasIm(k, N)) {
                    EXPECT_EQ(L::im(k, N), std::size_t(slotOf(layout, N, 2 * k)));
                }
            }
        }
    };
    expectLayout(Ccs{}, Layout::CCS);
    expectLayout(Pack{}, Layout::InOrder);
    expectLayout(Perm{}, Layout::Perm);
    EXPECT_EQ(Ccs::im(0, 8), 1u);
    EXPECT_EQ(Ccs::im(4, 8), 9u);
}

TEST(CppFace, TheVersionIsTheLibrarys)
{
    EXPECT_EQ(&rvng::version(), rvngenGetLibVersion());
}

// ---- What does not fit -------------------------------------------------------------------------

TYPED_TEST(CppFace, SpansThatDoNotFitAreRefusedAtRunTime)
{
    using Complex = std::complex<TypeParam>;
    const auto expectRefusal = []<typename T>(std::size_t in, std::size_t out, T, auto transform) {
        const std::vector<T> x(in);
        std::vector<T> X(out, T{7});
        EXPECT_EQ(transform(x, X), Status::SizeError) << in << " " << out;
        EXPECT_EQ(X, std::vector<T>(out, T{7}));
    };
    const auto s = Scale::None;
    for (const auto& [in, out] : std::vector<std::pair<std::size_t, std::size_t>>{
             {0, 0}, {1, 1}, {65, 65}, {8, 7}, {7, 8}, {0, 8}, {8, 0}, {64, 65}}) {
        expectRefusal(in, out, Complex{},
                      [s](auto& x, auto& X) { return rvng::dftForward(x, X, s); });
        expectRefusal(in, out, Complex{},
                      [s](auto& x, auto& X) { return rvng::dftInverse(x, X, s); });
        expectRefusal(in, out, TypeParam{},
                      [s](auto& x, auto& X) { return rvng::dftForward<Pack>(x, X, s); });
        expectRefusal(in, out, TypeParam{},
                      [s](auto& x, auto& X) { return rvng::dftInverse<Perm>(x, X, s); });
        expectRefusal(in, out, TypeParam{},
                      [s](auto& x, auto& X) { return rvng::hartley(x, X, s); });
    }
    for (const auto& [signal, spectrum] : std::vector<std::pair<std::size_t, std::size_t>>{
             {8, 8}, {8, 9}, {7, 7}, {7, 9}, {1, 2}, {65, 66}, {0, 2}}) {
        expectRefusal(signal, spectrum, TypeParam{},
                      [s](auto& x, auto& X) { return rvng::dftForward<Ccs>(x, X, s); });
        expectRefusal(spectrum, signal, TypeParam{},
                      [s](auto& x, auto& X) { return rvng::dftInverse<Ccs>(x, X, s); });
    }
    for (const auto& [in, out] : std::vector<std::pair<std::size_t, std::size_t>>{
             {0, 0}, {1, 1}, {3, 3}, {48, 48}, {1 << 14, 1 << 14}, {8, 4}, {4, 8}})
        expectRefusal(in, out, TypeParam{}, [s](auto& x, auto& X) { return rvng::wht(x, X, s); });
    std::size_t bytes = 5;
    for (const std::size_t order : {std::size_t{0}, std::size_t{14}, std::size_t{1} << 32})
        EXPECT_EQ(rvng::whtBufferSize<TypeParam>(order, bytes), Status::SizeError);
    EXPECT_EQ(bytes, 5u);
}

TYPED_TEST(CppFace, StatusesOfTheCFunctionsAreHandedOn)
{
    std::array<TypeParam, 8> x = {};
    std::array<TypeParam, 8> X = {};
    EXPECT_EQ(rvng::hartley<8>(x, X, static_cast<Scale>(3)), Status::FlagError);
    EXPECT_EQ(rvng::hartley(x, X, static_cast<Scale>(3)), Status::FlagError);
    TypeParam* const null = nullptr;
    EXPECT_EQ(rvng::hartley<8>(x, std::span<TypeParam, 8>(null, 8), Scale::None),
              Status::NullPointer);
}

template <typename T>
concept HasDct4 = requires
{
    typename rvng::Dct4<T>;
};

static_assert(HasDct4<float> && HasDct4<double> && !HasDct4<long double> && !HasDct4<int>);

static_assert(!std::is_copy_constructible_v<rvng::Dct4<float>>);
static_assert(!std::is_copy_assignable_v<rvng::Dct4<float>>);
static_assert(std::is_nothrow_move_constructible_v<rvng::Dct4<float>>);
static_assert(std::is_nothrow_move_assignable_v<rvng::Dct4<double>>);

} // namespace

} // namespace rvn::tests
