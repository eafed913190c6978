// The methods by which a length is computed, N = a x b where it is split.
#pragma once

#include <numeric>
#include <stdexcept>
#include <string>

namespace rvn::generator
{

inline constexpr int lowestLength = 2; // of the plan tables
inline constexpr int highestLength = 64;

enum class Method { Butterfly, Direct, CooleyTukey, GoodThomas, Rader };

constexpr bool isOddPrime(int length)
{
    bool isPrime = length > 2;
    for (int factor = 2; factor < length; ++factor)
        isPrime = isPrime && length % factor != 0;
    return isPrime;
}

// Whether a method can compute a length by these factors: coprime where they must be, and 1 where
// there is no split.
constexpr bool isSplit(int length, Method method, int a, int b)
{
    const bool isWhole = a == 1 && b == 1;
    const bool isProduct = a > 1 && b > 1 && a * b == length;
    switch (method) {
    case Method::Butterfly:
        return isWhole && length == 2;
    case Method::Direct:
    case Method::Rader:
        return isWhole && isOddPrime(length);
    case Method::CooleyTukey:
        return isProduct;
    case Method::GoodThomas:
        return isProduct && std::gcd(a, b) == 1;
    }
    return false;
}

// "Good-Thomas 9 x 4"; of Rader's method the name alone.
inline std::string nameOf(Method method, int a, int b)
{
    const std::string split = " " + std::to_string(a) + " x " + std::to_string(b);
    switch (method) {
    case Method::Butterfly:
        return "butterfly";
    case Method::Direct:
        return "direct";
    case Method::CooleyTukey:
        return "Cooley-Tukey" + split;
    case Method::GoodThomas:
        return "Good-Thomas" + split;
    case Method::Rader:
        return "Rader";
    }
    return {};
}

// Throws std::runtime_error unless a stage transforms `size` values by a split of that length.
inline void requireSplit(std::size_t size, int length, Method method, int a, int b)
{
    if (static_cast<std::size_t>(length) != size || !isSplit(length, method, a, b))
        throw std::runtime_error("no way to transform " + std::to_string(size) + " values: " +
                                 nameOf(method, a, b) + " of length " + std::to_string(length));
}

} // namespace rvn::generator
