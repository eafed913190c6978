/* hartley.c - a cyclic convolution through the Hartley transform, which is real and its own
 * inverse: one function serves both ways.
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

enum { length = 30 };

int main(void)
{
    double x[length], h[length] = {0.5, 0.25, 0.125}, X[length], H[length], Y[length], y[length];
    for (int n = 0; n < length; ++n)
        x[n] = n % 7 - 3;

    if (rvngHartley_30_64f(x, X, RvnScaleNone) != RvnStatusNoError ||
        rvngHartley_30_64f(h, H, RvnScaleNone) != RvnStatusNoError)
        return 1;
    for (int k = 0; k < length; ++k) {
        const int mirrored = (length - k) % length;
        Y[k] = (X[k] * (H[k] + H[mirrored]) + X[mirrored] * (H[k] - H[mirrored])) / 2;
    }
    if (rvngHartley_30_64f(Y, y, RvnScaleFwdByN) != RvnStatusNoError)
        return 1;

    double largest = 0;
    for (int n = 0; n < length; ++n) {
        double sum = 0;
        for (int m = 0; m < length; ++m)
            sum += h[m] * x[(n - m + length) % length];
        largest = fmax(largest, fabs(y[n] - sum));
    }
    printf("the convolution agrees with its sum within %.1e\n", largest);
    return largest < 1e-13 ? 0 : 1;
}
