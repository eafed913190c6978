// The bits that every exported transform gives are those of docs/abi/bits.txt, a hash for each,
// over all that it gives for fixed inputs. A change of a bit is a decision: who decides on one
// rewrites the file with tools/bits --write.
//
// One input of a kind meets the edges of the formats. It takes many ordinary ones to notice that
// the last place of a constant has changed: 256 notice it in all binary64 kernels, and in 98 % of
// the binary32 ones, where a constant may be off by an ulp of binary32 and no result.
//
// Nothing here may depend on the compiler, its options or the C library: inputs are integers taken
// as bit patterns, and this program defines the sines and cosines of the DCT-IV's tables itself.

#include "kernels.h"

#include <algorithm>
#include <array>
#include <cfenv>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <map>
#include <numbers>
#include <set>
#include <sstream>
#include <stdexcept>

namespace
{

// sin(x + quarters pi / 2) for x >= 0.
double sine(double x, int quarters)
{
    constexpr double quarter = std::numbers::pi / 2;
    const int n = static_cast<int>(x / quarter + 0.5);
    const double y = x - n * quarter;
    const int turn = (n + quarters) % 4;
    const bool isEven = turn % 2 == 1;
    double term = isEven ? 1 : y;
    double sum = term;
    for (int k = isEven ? 1 : 2; k < 24; k += 2) {
        term *= -y * y / (k * (k + 1));
        sum += term;
    }
    return turn < 2 ? sum : -sum;
}

} // namespace

extern "C" {
double sin(double x) noexcept
{
    return sine(x, 0);
}
double cos(double x) noexcept
{
    return sine(x, 1);
}
float sinf(float x) noexcept
{
    return static_cast<float>(sine(x, 0));
}
float cosf(float x) noexcept
{
    return static_cast<float>(sine(x, 1));
}
}

namespace rvn::tests
{

namespace
{

enum class Kind { Ordinary, Sparse, Zeros, PlusZeros, Subnormal, Tiny, Huge };

constexpr Kind everyKind[] = {Kind::Ordinary,  Kind::Sparse, Kind::Zeros, Kind::PlusZeros,
                              Kind::Subnormal, Kind::Tiny,   Kind::Huge};

std::string inWords(Kind kind)
{
    static const char* const words[] = {"ordinary",  "sparse", "zero", "positive zero",
                                        "subnormal", "tiny",   "huge"};
    return words[static_cast<int>(kind)] + std::string(" numbers");
}

template <typename Real>
using Pattern = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;

constexpr int ordinaryInputs = 256;

// Mantissas are random, and exponents within the range of the kind. Signs are, of zeros too but for
// those of one kind. Tiny values lie on both sides of the smallest normal one; huge ones leave the
// room that their sum and the doubling of an inverse transform take.
template <typename Real> std::vector<Real> input(Kind kind, int count, int seed = 0)
{
    using Limits = std::numeric_limits<Real>;
    constexpr int mantissaBits = Limits::digits - 1;
    constexpr int one = Limits::max_exponent - 1;
    const int largest = 2 * one - std::bit_width(static_cast<unsigned>(count)) - 2;

    std::mt19937_64 draw(count + (std::uint64_t{1} << 32) * seed);
    const auto number = [&](int lowest, int highest) {
        const std::uint64_t exponent = lowest + draw() % (highest - lowest + 1);
        const std::uint64_t mantissa = draw() >> (64 - mantissaBits);
        return exponent << mantissaBits | mantissa;
    };
    const auto magnitude = [&]() -> std::uint64_t {
        switch (kind) {
        case Kind::Ordinary:
            return number(one - 8, one);
        case Kind::Sparse:
            return draw() % 2 == 0 ? 0 : number(one - 8, one);
        case Kind::Subnormal:
            return number(0, 0);
        case Kind::Tiny:
            return number(0, mantissaBits);
        case Kind::Huge:
            return number(largest - 1, largest);
        default:
            return 0;
        }
    };
    std::vector<Real> values(count);
    for (Real& value : values) {
        const std::uint64_t sign = kind == Kind::PlusZeros ? 0 : draw() % 2;
        const std::uint64_t pattern = sign << (8 * sizeof(Real) - 1) | magnitude();
        value = std::bit_cast<Real>(static_cast<Pattern<Real>>(pattern));
    }
    return values;
}

// By name: FNV-1a of 64 bits over all results, the lowest byte of a value first.
class Hashes
{
public:
    template <typename Real>
    void add(const std::string& name, const std::string& call, const std::vector<Real>& result)
    {
        std::uint64_t& hash = hashes.try_emplace(name, 0xcbf29ce484222325).first->second;
        for (const Real value : result) {
            if (!std::isfinite(value))
                throw std::runtime_error(name + " of " + call + " gives what is not finite");
            const auto pattern = std::bit_cast<Pattern<Real>>(value);
            for (std::size_t bit = 0; bit < 8 * sizeof(Real); bit += 8)
                hash = (hash ^ (pattern >> bit & 0xff)) * 0x100000001b3;
        }
    }

    std::vector<std::string> lines() const
    {
        std::vector<std::string> lines;
        for (const auto& [name, hash] : hashes) {
            std::ostringstream line;
            line << name << " " << std::hex << std::setfill('0') << std::setw(16) << hash;
            lines.push_back(line.str());
        }
        return lines;
    }

private:
    std::map<std::string, std::uint64_t> hashes;
};

template <typename Real> void addKernels(Hashes& hashes)
{
    for (const auto& kernel : everyKernel<Real>()) {
        const auto add = [&](Kind kind, int seed, RvnScaleFlag flag) {
            const auto x = arranged(input<Real>(kind, kernel.parts(), seed), kernel.source());
            hashes.add(kernel.name, inWords(kind) + " under " + tests::inWords(flag),
                       resultOf(kernel, x.data(), flag));
        };
        for (const Kind kind : everyKind)
            for (const RvnScaleFlag flag : everyFlag)
                add(kind, 0, flag);
        // The Walsh-Hadamard transform has no constants.
        for (int seed = 1; seed < ordinaryInputs && !kernel.isWalshHadamard(); ++seed)
            add(Kind::Ordinary, seed, RvnScaleNone);
    }
}

// All radixes and ways through the cache. The sizes 2^k + 1 read and write an element more, and
// leave others as they were.
template <typename Real, typename Spec>
void addDct4(Hashes& hashes, const std::string& name, RvnStatus (*query)(int32_t, int32_t*),
             RvnStatus (*init)(Spec**, int32_t, void*), RvnStatus (*run)(const Real*, Real*, Spec*))
{
    for (int power = 2; power <= 1 << 17; power *= 2)
        for (const int size : {power, power + 1}) {
            int32_t bytes = 0;
            if (query(size, &bytes) != RvnStatusNoError)
                continue;
            std::vector<char> block(bytes);
            Spec* spec = nullptr;
            init(&spec, size, block.data());
            const auto add = [&](Kind kind, int seed) {
                const auto x = input<Real>(kind, size == power ? size : size + 1, seed);
                std::vector<Real> y(x.size());
                run(x.data(), y.data(), spec);
                hashes.add(name + "/" + std::to_string(size), inWords(kind), y);
            };
            for (const Kind kind : everyKind)
                add(kind, 0);
            // A large size meets each constant many times in one input.
            for (int seed = 1; seed < std::min(ordinaryInputs, (1 << 16) / power); ++seed)
                add(Kind::Ordinary, seed);
        }
}

// A name and a hash for each transform, and for each size of the DCT-IV; sorted.
std::vector<std::string> everyLine()
{
    Hashes hashes;
    addKernels<float>(hashes);
    addKernels<double>(hashes);
    addDct4(hashes, "rvngDCT4_32f", rvngDCT4GetSize_32f, rvngDCT4Init_32f, rvngDCT4_32f);
    addDct4(hashes, "rvngDCT4_64f", rvngDCT4GetSize_64f, rvngDCT4Init_64f, rvngDCT4_64f);
    return hashes.lines();
}

TEST(Bits, OfEveryTransformAreThoseOfTheFile)
{
    std::vector<std::string> expected;
    std::ifstream file(BITS_FILE);
    for (std::string line; std::getline(file, line);)
        expected.push_back(line);
    std::feclearexcept(FE_ALL_EXCEPT);
    const auto actual = everyLine();
    EXPECT_EQ(std::fetestexcept(FE_OVERFLOW | FE_INVALID), 0) << "a huge input is too large";

    std::vector<std::string> lines;
    std::set_symmetric_difference(actual.begin(), actual.end(), expected.begin(), expected.end(),
                                  std::back_inserter(lines));
    std::set<std::string> names;
    for (const auto& line : lines)
        names.insert(line.substr(0, line.find(' ')));
    std::string first;
    for (auto name = names.begin(); name != names.end() && first.size() < 200; ++name)
        first += *name + " ";
    EXPECT_TRUE(names.empty()) << names.size() << " of " << expected.size()
                               << " functions give other bits: " << first
                               << "...\nIf that is meant: tools/bits --write, and say so in "
                                  "CHANGELOG.md.";
}

} // namespace

} // namespace rvn::tests

int main(int argumentCount, char** arguments)
{
    if (argumentCount == 2 && arguments[1] == std::string("--print")) {
        for (const auto& line : rvn::tests::everyLine())
            std::cout << line << "\n";
        return 0;
    }
    ::testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
