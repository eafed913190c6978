// The DCT-IV and the odd-frequency transform in long double: by their definitions, and the former
// also through a complex Fourier transform of half the length, which shares no step with the
// library. And the order of the factors in a table, as a list.
#pragma once

#include "reference.h"

namespace rvn::tests
{

// Re e^(2 pi i turns / whole) for all turns.
class CosineTable
{
public:
    explicit CosineTable(int whole)
    {
        for (int turns = 0; turns < whole; ++turns)
            values_.push_back(unitRoot(turns, whole).real());
    }

    long double at(long turns) const { return values_[turns % std::ssize(values_)]; }

private:
    std::vector<long double> values_;
};

// One output: X[k] = sum over n of x[n] cos(pi (2n + 1)(2k + 1) / (4N)).
template <typename Real>
long double dct4Output(const std::vector<Real>& x, int k, const CosineTable& cosines)
{
    long double sum = 0;
    for (long n = 0; n < std::ssize(x); ++n)
        sum += static_cast<long double>(x[n]) * cosines.at((2 * n + 1) * (2L * k + 1));
    return sum;
}

template <typename Real> std::vector<Wide> dct4BySum(const std::vector<Real>& x)
{
    const int N = static_cast<int>(x.size());
    const CosineTable cosines(8 * N);
    std::vector<Wide> X;
    for (int k = 0; k < N; ++k)
        X.emplace_back(dct4Output(x, k, cosines));
    return X;
}

// X[k] = sum over n of x[n] e^(-2 pi i n k / N), N a power of two, by halves.
inline std::vector<Wide> fourier(const std::vector<Wide>& x)
{
    const int N = static_cast<int>(x.size());
    if (N == 1)
        return x;
    std::vector<Wide> even, odd;
    for (int n = 0; n < N; n += 2) {
        even.push_back(x[n]);
        odd.push_back(x[n + 1]);
    }
    even = fourier(even);
    odd = fourier(odd);
    std::vector<Wide> X(N);
    for (int k = 0; k < N / 2; ++k) {
        const Wide turned = unitRoot(-k, N) * odd[k];
        X[k] = even[k] + turned;
        X[k + N / 2] = even[k] - turned;
    }
    return X;
}

// With z[n] = (x[2n] + i x[N - 1 - 2n]) w(n) and Z(k) its Fourier transform times w(k), where
// w(n) = e^(-i pi (8n + 1) / (8N)): X[2k] = Re Z(k), X[N - 1 - 2k] = -Im Z(k).
template <typename Real> std::vector<Wide> dct4ByFourier(const std::vector<Real>& x)
{
    const int N = static_cast<int>(x.size());
    const auto w = [N](int n) { return unitRoot(-(8L * n + 1), 16 * N); };
    std::vector<Wide> z;
    for (int n = 0; n < N / 2; ++n)
        z.push_back(Wide(x[2 * n], x[N - 1 - 2 * n]) * w(n));
    z = fourier(z);
    std::vector<Wide> X(N);
    for (int k = 0; k < N / 2; ++k) {
        const Wide turned = z[k] * w(k);
        X[2 * k] = turned.real();
        X[N - 1 - 2 * k] = -turned.imag();
    }
    return X;
}

// Y(q) = sum over t of u[t] e^(i pi t (2q + 1) / L), q < L/2; u[t] is at t + L/2, from -L/2 on.
template <typename Value> std::vector<Wide> oddFrequencySum(const std::vector<Value>& u)
{
    const int L = static_cast<int>(u.size());
    std::vector<Wide> root;
    for (int turns = 0; turns < 2 * L; ++turns)
        root.push_back(unitRoot(turns, 2 * L));
    std::vector<Wide> Y(L / 2);
    for (int q = 0; q < L / 2; ++q)
        for (int place = 0; place < L; ++place) {
            const int turns = (place - L / 2) * (2 * q + 1) % (2 * L);
            Y[q] += static_cast<long double>(u[place]) * root[(turns + 2 * L) % (2 * L)];
        }
    return Y;
}

// W[s] = Re sum over j of T[j] e^(i pi (2j + 1) s / (2r)), s = -r to r - 1, at s + r.
inline std::vector<Wide> topRowSum(const std::vector<Wide>& T)
{
    const int r = static_cast<int>(T.size());
    std::vector<Wide> W(2 * r);
    for (int s = -r; s < r; ++s)
        for (int j = 0; j < r; ++j)
            W[s + r] += (T[j] * unitRoot((2L * j + 1) * s, 4 * r)).real();
    return W;
}

// The pairs of a row of the top split's table belong to these values of the row.
inline std::vector<int> pairOrder(int r)
{
    if (r == 32)
        return {0, 31, 16, 15, 4, 27, 20, 11, 8, 23, 24, 7, 12, 19, 28, 3,
                1, 30, 17, 14, 5, 26, 21, 10, 9, 22, 25, 6, 13, 18, 29, 2};
    std::vector<int> order;
    for (int g = 0; g < (r + 1) / 2; ++g) {
        order.push_back(g);
        if (r > 1)
            order.push_back(r - 1 - g);
    }
    return order;
}

} // namespace rvn::tests
