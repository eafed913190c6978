// The splits of the engine as plain recursion in the element type: the same factorisation, and
// factors rounded as the engine rounds those of its tables and of its bodies, but nothing of its
// code. Its error is the measure of the engine's.
#pragma once

#include "dct4_reference.h"

namespace rvn::tests
{

template <typename T> class Dct4Model
{
public:
    using Complex = std::complex<T>;
    using Complexes = std::vector<Complex>;

    static std::vector<T> transform(const std::vector<T>& x)
    {
        const int N = static_cast<int>(x.size());
        if (N == 2) {
            const Complex c = exact(1, 8);
            return {x[0] * c.real() + x[1] * c.imag(), x[0] * c.imag() - x[1] * c.real()};
        }
        return N == 4 ? byLifting(x) : bySplit(x);
    }

private:
    static constexpr int bodyLimit = 32; // the longest transform without tables

    // e^(i pi numerator / denominator) with both parts the nearest of the type.
    static Complex exact(long numerator, int denominator)
    {
        const Wide root = unitRoot(numerator, 2 * denominator);
        return {static_cast<T>(root.real()), static_cast<T>(root.imag())};
    }

    // e^(i pi x) as in a table: pi x is rounded to the type first.
    static Complex tabulated(T x)
    {
        const T angle = static_cast<T>(static_cast<double>(x) * std::numbers::pi);
        return {std::cos(angle), std::sin(angle)};
    }

    static int planRadix(int length)
    {
        const int half = length / 2;
        return half >= 512 ? 32 : half >= 128 ? 16 : half >= 32 ? 8 : half >= 16 ? 4 : 2;
    }

    static std::vector<T> byLifting(const std::vector<T>& x)
    {
        const auto rotated = [](T a, T b, int angle) { // by pi angle / 32
            const long double theta = std::numbers::pi_v<long double> * angle / 32;
            const T tangent = static_cast<T>(std::tan(theta / 2));
            const T first = a - tangent * b;
            const T second = b + static_cast<T>(std::sin(theta)) * first;
            return Complex(first - tangent * second, second);
        };
        const Complex outer = rotated(x[0], x[3], 14);
        const Complex inner = rotated(x[1], x[2], 10);
        const T h = exact(1, 4).real();
        const T e = (outer.imag() - inner.imag()) * h;
        const T f = (outer.real() + inner.real()) * h;
        return {outer.imag() + inner.imag(), e + f, e - f, outer.real() - inner.real()};
    }

    static std::vector<T> bySplit(const std::vector<T>& x)
    {
        const int N = static_cast<int>(x.size());
        const int r = N > bodyLimit ? planRadix(N) : N == 16 ? 4 : 2;
        const int M = N / r;
        std::vector<Complexes> Y;
        for (int j = 0; j < r; ++j) {
            std::vector<T> u;
            for (int t = -M / 2; t < M / 2; ++t) {
                const int n = j + 2 * r * t;
                u.push_back(x[n < 0 ? -1 - n : n]);
            }
            Y.push_back(oddFrequency(u));
        }
        std::vector<T> X(N);
        for (int q = 0; q < M / 2; ++q) {
            Complexes row;
            for (int j = 0; j < r; ++j) {
                const int angle = (2 * q + 1) * (2 * j + 1);
                row.push_back(Y[j][q] * (N > bodyLimit ? tabulated(static_cast<T>(2 * angle) /
                                                                   static_cast<T>(8 * N))
                                                       : exact(angle, 4 * N)));
            }
            const std::vector<T> W = transposed(row);
            for (int s = 0; s < r; ++s) {
                X[q + M * s] = W[r + s];
                X[M * (s + 1) - 1 - q] = W[r - 1 - s];
            }
        }
        return X;
    }

    // Y(q), q < L/2, of u[t] at t + L/2.
    static Complexes oddFrequency(const std::vector<T>& u)
    {
        const int L = static_cast<int>(u.size());
        if (L == 2)
            return {Complex(u[1], 0 - u[0])};
        if (L == 4) {
            const T h = exact(1, 4).real();
            const T e = (u[3] + u[1]) * h;
            const T f = (u[3] - u[1]) * h;
            return {Complex(u[2] + e, f - u[0]), Complex(u[2] - e, u[0] + f)};
        }
        const bool isBody = L <= 64;
        const int r = isBody ? (L == 16 || L == 64 ? 4 : 2) : planRadix(L);
        const int M = L / r;
        std::vector<Complexes> V;
        for (int v = 0; v < r; ++v) {
            std::vector<T> sequence;
            for (int w = 0; w < M; ++w)
                sequence.push_back(u[v + r * w]);
            V.push_back(oddFrequency(sequence));
        }
        Complexes Y(L / 2);
        for (int q = 0; q < M / 2; ++q) {
            Complexes values;
            for (int v = 0; v < r; ++v)
                values.push_back(V[v][q] * (isBody && v > 0 ? exact(v * (2 * q + 1), L) : 1));
            const T x = (static_cast<T>(q) + T{0.5}) / static_cast<T>(M);
            const Complexes D = isBody ? fourierSum(values) : twiddledSum(values, x);
            for (int s = 0; s < r / 2; ++s) {
                Y[q + M * s] = D[s];
                Y[M - 1 - q + M * s] = std::conj(D[r - 1 - s]);
            }
        }
        return Y;
    }

    // D[s] = sum over v of V[v] e^(2 pi i v (x + s) / r); above 8 points in stages of r/4 and 4.
    static Complexes twiddledSum(Complexes V, T x)
    {
        const int r = static_cast<int>(V.size());
        const T step = T{2} / static_cast<T>(r);
        if (r <= 8) {
            for (int v = 1; v < r; ++v)
                V[v] *= tabulated(step * static_cast<T>(v) * x);
            return fourierSum(V);
        }
        const int R = r / 4;
        std::vector<Complexes> E;
        for (int a = 0; a < 4; ++a) {
            Complexes column;
            for (int b = 0; b < R; ++b)
                column.push_back(V[a + 4 * b]);
            E.push_back(twiddledSum(column, x));
        }
        Complexes D(r);
        for (int s = 0; s < R; ++s) {
            Complexes column{E[0][s]};
            for (int a = 1; a < 4; ++a)
                column.push_back(E[a][s] *
                                 tabulated(step * static_cast<T>(a) * (x + static_cast<T>(s))));
            const Complexes points = fourierSum(column);
            for (int part = 0; part < 4; ++part)
                D[s + R * part] = points[part];
        }
        return D;
    }

    // X[s] = sum over v of x[v] e^(2 pi i v s / r), 2, 4 or 8 points.
    static Complexes fourierSum(const Complexes& x)
    {
        const int r = static_cast<int>(x.size());
        if (r == 1)
            return x;
        Complexes even, odd;
        for (int v = 0; v < r; v += 2) {
            even.push_back(x[v]);
            odd.push_back(x[v + 1]);
        }
        even = fourierSum(even);
        odd = fourierSum(odd);
        Complexes X(r);
        for (int s = 0; s < r / 2; ++s) {
            const Complex y = odd[s];
            const bool isQuarter = 4 * s == r;
            const Complex turned = s == 0      ? y
                                   : isQuarter ? Complex(-y.imag(), y.real())
                                               : y * exact(2 * s, r);
            X[s] = even[s] + turned;
            X[s + r / 2] = even[s] - turned;
        }
        return X;
    }

    // W[t] = Re sum over q of values[q] e^(i pi t (2q + 1) / L), L = 2 values.size(), at t + L/2.
    static std::vector<T> transposed(const Complexes& values)
    {
        const int M = static_cast<int>(values.size());
        if (M == 1)
            return {values[0].imag(), values[0].real()};
        Complexes even, odd;
        for (int q = 0; q < M / 2; ++q) {
            const Complex mirrored = std::conj(values[M - 1 - q]);
            even.push_back(values[q] + mirrored);
            odd.push_back((values[q] - mirrored) * exact(2 * q + 1, 2 * M));
        }
        const std::vector<T> halves[] = {transposed(even), transposed(odd)};
        std::vector<T> W;
        for (int place = 0; place < 2 * M; ++place)
            W.push_back(halves[place % 2][place / 2]);
        return W;
    }
};

} // namespace rvn::tests
