// What a careful programmer writes in an hour: the butterflies of the definition, two levels a
// pass, so that four numbers are loaded, take part in eight additions and are stored again.
//
//     level h       a[i] + a[i + h],  a[i] - a[i + h]
//     level 2 h     the same of what level h left, 2 h apart
//
// An odd order begins with a pass of one level. The first pass reads src and writes dst, the others
// work in dst, and the last one multiplies by the scale. The loops have nothing but additions of
// indices in them; restrict lets the vectoriser go ahead without a test at run time.
//
// Compiled once for each namespace of wht_loop.h, WHT_LOOP. Nothing of the C++ library is used: its
// inline functions, compiled for AVX2, could take the place of everyone's.

#include "wht_loop.h"

namespace
{

template <bool isLast, typename Real> inline Real scaled(Real value, Real scale)
{
    return isLast ? value * scale : value;
}

// Level 1, from neighbours to neighbours. The arrays may be the same one.
template <bool isLast, typename Real>
inline void pairs(const Real* in, Real* out, int length, Real scale)
{
    for (int i = 0; i < length; i += 2) {
        const Real a = in[i];
        const Real b = in[i + 1];
        out[i] = scaled<isLast>(a + b, scale);
        out[i + 1] = scaled<isLast>(a - b, scale);
    }
}

// Levels 1 and 2 of four neighbours, likewise.
template <bool isLast, typename Real>
inline void fours(const Real* in, Real* out, int length, Real scale)
{
    for (int i = 0; i < length; i += 4) {
        const Real sum01 = in[i] + in[i + 1];
        const Real difference01 = in[i] - in[i + 1];
        const Real sum23 = in[i + 2] + in[i + 3];
        const Real difference23 = in[i + 2] - in[i + 3];
        out[i] = scaled<isLast>(sum01 + sum23, scale);
        out[i + 1] = scaled<isLast>(difference01 + difference23, scale);
        out[i + 2] = scaled<isLast>(sum01 - sum23, scale);
        out[i + 3] = scaled<isLast>(difference01 - difference23, scale);
    }
}

// The first pass. In place the compiler sees that both arrays are one, else that they are not.
template <bool isLast, typename Real> void firstInPlace(Real* data, int order, Real scale)
{
    if (order % 2 == 1)
        pairs<isLast>(data, data, 1 << order, scale);
    else
        fours<isLast>(data, data, 1 << order, scale);
}

template <bool isLast, typename Real>
void firstOutOfPlace(const Real* __restrict src, Real* __restrict dst, int order, Real scale)
{
    if (order % 2 == 1)
        pairs<isLast>(src, dst, 1 << order, scale);
    else
        fours<isLast>(src, dst, 1 << order, scale);
}

template <bool isLast, typename Real>
void firstPass(const Real* src, Real* dst, int order, Real scale)
{
    if (src == dst)
        firstInPlace<isLast>(dst, order, scale);
    else
        firstOutOfPlace<isLast>(src, dst, order, scale);
}

// Levels h and 2 h of one block: its quarters a, b, c, d have h numbers each.
template <bool isLast, typename Real>
inline void quarters(Real* __restrict a, Real* __restrict b, Real* __restrict c, Real* __restrict d,
                     int h, Real scale)
{
    for (int i = 0; i < h; ++i) {
        const Real sumAB = a[i] + b[i];
        const Real differenceAB = a[i] - b[i];
        const Real sumCD = c[i] + d[i];
        const Real differenceCD = c[i] - d[i];
        a[i] = scaled<isLast>(sumAB + sumCD, scale);
        b[i] = scaled<isLast>(differenceAB + differenceCD, scale);
        c[i] = scaled<isLast>(sumAB - sumCD, scale);
        d[i] = scaled<isLast>(differenceAB - differenceCD, scale);
    }
}

// Levels h and 2 h of all blocks.
template <typename Real> inline void pass(Real* data, int length, int h)
{
    for (int block = 0; block < length; block += 4 * h) {
        Real* const a = data + block;
        quarters<false>(a, a + h, a + 2 * h, a + 3 * h, h, Real(1));
    }
}

template <typename Real> void transform(const Real* src, Real* dst, int order, Real scale)
{
    if (order <= 2)
        return firstPass<true>(src, dst, order, scale);
    firstPass<false>(src, dst, order, scale);

    const int length = 1 << order;
    int h = order % 2 == 1 ? 2 : 4;
    if (h == 2 && order > 3) {
        pass(dst, length, 2); // a constant, so that nothing is left of the loop over two numbers
        h = 8;
    }
    for (; 4 * h < length; h *= 4)
        pass(dst, length, h);
    quarters<true>(dst, dst + h, dst + 2 * h, dst + 3 * h, h, scale);
}

} // namespace

void WHT_LOOP::wht(const float* src, float* dst, int order, float scale)
{
    transform(src, dst, order, scale);
}

void WHT_LOOP::wht(const double* src, double* dst, int order, double scale)
{
    transform(src, dst, order, scale);
}
