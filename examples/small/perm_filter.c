/* perm_filter.c - a filter in place. The layout Perm has as many elements as the signal, so one
 * array holds the signal, its spectrum, and the signal again.
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

enum { length = 64, firstStopped = 10 };

int main(void)
{
    const double pi = acos(-1.0);
    float x[length];
    for (int n = 0; n < length; ++n)
        x[n] = (float)(cos(2 * pi * 3 * n / length) + cos(2 * pi * 20 * n / length));

    if (rvngDFTFwd_RToPerm_64_32f(x, x, RvnScaleInvByN) != RvnStatusNoError)
        return 1;
    /* R(0) R(N/2) R(1) I(1) R(2) I(2) ... */
    x[1] = 0;
    for (int k = firstStopped; k < length / 2; ++k)
        x[2 * k] = x[2 * k + 1] = 0;
    if (rvngDFTInv_PermToR_64_32f(x, x, RvnScaleInvByN) != RvnStatusNoError)
        return 1;

    double largest = 0;
    for (int n = 0; n < length; ++n)
        largest = fmax(largest, fabs(x[n] - cos(2 * pi * 3 * n / length)));
    printf("only the slow cosine is left, within %.1e\n", largest);
    return largest < 1e-6 ? 0 : 1;
}
