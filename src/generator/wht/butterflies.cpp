// The Sylvester matrix H(2N) = {{H(N), H(N)}, {H(N), -H(N)}} as butterflies over the bits of the
// index: for h = 1, 2, 4, ..., N/2 each pair (a[i], a[i + h]) becomes its sum and its difference.
//
// Every output sees its butterflies with ascending h, which fixes the rounding. The order of the
// text is free: rows of 8 elements, which fit the registers, then columns in the same way, keep
// few values live.

#include "generator/wht/butterflies.h"

namespace rvn::generator
{

namespace
{

constexpr int rowLength = 8;

Values butterflies(ValuesView x)
{
    const int N = static_cast<int>(x.size());
    Values a(x.begin(), x.end());
    for (int h = 1; h < N; h *= 2) {
        for (int i = 0; i < N; ++i) {
            if (i & h)
                continue;
            const Value lower = a[i];
            const Value upper = a[i + h];
            a[i] = lower + upper;
            a[i + h] = lower - upper;
        }
    }
    return a;
}

} // namespace

Values walshHadamard(ValuesView x)
{
    if (x.size() <= rowLength)
        return butterflies(x);
    const int N = static_cast<int>(x.size());
    Values y;
    for (int row = 0; row < N; row += rowLength)
        for (const Value value : butterflies(x.subspan(row, rowLength)))
            y.push_back(value);
    for (int c = 0; c < rowLength; ++c) {
        Values column;
        for (int i = c; i < N; i += rowLength)
            column.push_back(y[i]);
        column = walshHadamard(column);
        for (int i = c; i < N; i += rowLength)
            y[i] = column[i / rowLength];
    }
    return y;
}

} // namespace rvn::generator
