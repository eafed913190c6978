// The top split of a DCT-IV, N = 2 r m, M = N/r: with Y_j the odd-frequency transform of every
// 2r-th sample from j on, of the signal continued by x[-1 - n] = x[n],
//   X[k] = sum over j of Re(e^(i pi (2j + 1)(2k + 1) / (4N)) Y_j(k)),  j = 0 to r - 1.
// Row q gives the outputs k = q + M s and k = M (s + 1) - 1 - q from the twiddled T_j of its q:
//   W[s] = Re sum over j of T_j e^(i pi (2j + 1) s / (2r)),  s = -r to r - 1,
// the transpose of an odd-frequency transform of 2r points.

#include "generator/dct4/body_graphs.h"

#include "dct4/pair_order.h"
#include "generator/dct4/odd_frequency.h"
#include "generator/passes/finished.h"
#include "generator/transforms/roots.h"

namespace rvn::generator
{

namespace
{

// x (c + i s), the factor from a table
ComplexValue rotateBy(ComplexValue x, ComplexValue factor)
{
    const Value p = x.re * factor.re;
    const Value q = x.im * factor.im;
    const Value u = x.re * factor.im;
    const Value v = x.im * factor.re;
    return {p - q, u + v};
}

// X[0] = x[0] c1 + x[1] c3, X[1] = x[0] c3 - x[1] c1, with c1 = cos(pi/8), c3 = cos(3 pi/8).
Values direct2(ValuesView x)
{
    const double c1 = cosine(1, 16);
    const double c3 = cosine(3, 16);
    return {c1 * x[0] + c3 * x[1], c3 * x[0] - c1 * x[1]};
}

// Two rotations in three lifting steps each, then half of a butterfly by sqrt(1/2).
Values direct4(ValuesView x)
{
    const auto tangent = [](long numerator, long denominator) {
        const QuadComplex root = rootOfUnity(numerator, 2 * denominator);
        return static_cast<double>(-root.im / root.re);
    };
    const double a = tangent(7, 32);
    const double b = sine(7, 32);
    const double c = tangent(5, 32);
    const double d = sine(5, 32);
    const double h = cosine(1, 8);
    const Value p = x[0] - a * x[3];
    const Value s = x[1] - c * x[2];
    const Value u = x[3] + b * p;
    const Value v = x[2] + d * s;
    const Value p2 = p - a * u;
    const Value s2 = s - c * v;
    const Value e = h * (u - v);
    const Value f = h * (p2 + s2);
    return {u + v, e + f, e - f, p2 - s2};
}

Values directBySplit(ValuesView x, Radixes radixes)
{
    const int N = static_cast<int>(x.size());
    const int r = radixes.front();
    const int M = N / r;
    std::vector<ComplexValues> Y;
    for (int j = 0; j < r; ++j) {
        Values u(M);
        for (int t = 0; t < M / 2; ++t) {
            u[M / 2 + t] = x[j + 2 * r * t];
            u[M / 2 - 1 - t] = x[2 * r - 1 - j + 2 * r * t];
        }
        Y.push_back(oddFrequency(u, radixes.subspan(1)));
    }
    Values X(N);
    for (int q = 0; q < M / 2; ++q) {
        const auto twiddled = [&](int j) {
            const long angle = (2L * j + 1) * (2 * q + 1); // of pi / (4N)
            return multiply(Y[j][q], cosine(angle, 8L * N), sine(angle, 8L * N));
        };
        const Values W =
            transposedOddFrequency(twiddled, 2 * r, bodyPlan(BodyKind::TopRow, r).radixes);
        for (int s = 0; s < r; ++s) {
            X[q + M * s] = W[r + s];
            X[M * (s + 1) - 1 - q] = W[r - 1 - s];
        }
    }
    return X;
}

Values direct(GraphBuilder& builder, const BodyPlan& plan)
{
    const Values x = builder.loads(plan.size);
    if (plan.size == 2)
        return direct2(x);
    if (plan.size == 4)
        return direct4(x);
    return directBySplit(x, plan.radixes);
}

Values odd(GraphBuilder& builder, const BodyPlan& plan)
{
    Values parts;
    for (const ComplexValue& Y : oddFrequency(builder.loads(plan.size), plan.radixes))
        parts.insert(parts.end(), {Y.re, Y.im});
    return parts;
}

// The complex value of a row, and the pair at a place of the table behind the row.
ComplexValue rowValue(GraphBuilder& builder, int r, int v)
{
    return {builder.load(v), builder.load(r + v)};
}

ComplexValue tablePair(GraphBuilder& builder, int r, int place)
{
    return {builder.load(2 * r + 2 * place), builder.load(2 * r + 2 * place + 1)};
}

Values topRow(GraphBuilder& builder, const BodyPlan& plan)
{
    const int r = plan.size;
    const auto twiddled = [&](int j) {
        int place = 0;
        while (dct4::pairIndex(r, place) != j)
            ++place;
        return rotateBy(rowValue(builder, r, j), tablePair(builder, r, place));
    };
    return transposedOddFrequency(twiddled, 2 * r, plan.radixes);
}

// r points in one stage: the pairs belong to v = 1 to r - 1.
ComplexValues innerRowWhole(GraphBuilder& builder, int r)
{
    ComplexValues T{rowValue(builder, r, 0)};
    for (int v = 1; v < r; ++v)
        T.push_back(rotateBy(rowValue(builder, r, v), tablePair(builder, r, v - 1)));
    return positiveDft(T);
}

// r = 4 R points in two stages, v = a + 4 b: R points over b, with one set of R - 1 pairs for all
// a, then 4 points over a, with 3 pairs for each s1.
ComplexValues innerRowInStages(GraphBuilder& builder, int r)
{
    const int R = r / 4;
    std::vector<ComplexValues> E;
    for (int a = 0; a < 4; ++a) {
        ComplexValues column{rowValue(builder, r, a)};
        for (int b = 1; b < R; ++b)
            column.push_back(
                rotateBy(rowValue(builder, r, a + 4 * b), tablePair(builder, r, b - 1)));
        E.push_back(positiveDft(column));
    }
    ComplexValues D(r);
    for (int s1 = 0; s1 < R; ++s1) {
        ComplexValues column{E[0][s1]};
        for (int a = 1; a < 4; ++a)
            column.push_back(rotateBy(E[a][s1], tablePair(builder, r, R - 1 + 3 * s1 + a - 1)));
        const ComplexValues points = positiveDft(column);
        for (int s2 = 0; s2 < 4; ++s2)
            D[s1 + R * s2] = points[s2];
    }
    return D;
}

Values innerRow(GraphBuilder& builder, const BodyPlan& plan)
{
    const int r = plan.size;
    const bool inStages = plan.radixes[0] != 0;
    const ComplexValues D = inStages ? innerRowInStages(builder, r) : innerRowWhole(builder, r);
    Values outputs;
    for (int s = 0; s < r / 2; ++s) {
        const ComplexValue mirrored = conjugate(D[r - 1 - s]);
        outputs.insert(outputs.end(), {D[s].re, D[s].im, mirrored.re, mirrored.im});
    }
    return outputs;
}

Values outputsOf(GraphBuilder& builder, const BodyPlan& plan)
{
    switch (plan.kind) {
    case BodyKind::Direct:
        return direct(builder, plan);
    case BodyKind::Odd:
        return odd(builder, plan);
    case BodyKind::TopRow:
        return topRow(builder, plan);
    case BodyKind::InnerRow:
        return innerRow(builder, plan);
    }
    return {};
}

} // namespace

std::string nameOf(BodyKind kind)
{
    static const std::array<std::string, 4> names = {"direct", "odd", "topRow", "innerRow"};
    return names[static_cast<std::size_t>(kind)];
}

Graph bodyGraph(const BodyPlan& plan)
{
    GraphBuilder builder;
    return finished(builder, outputsOf(builder, plan));
}

} // namespace rvn::generator
