// The DCT-IV in long double by its definition, and the order of the factors in a table, as a list.
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
