/* dct2.c - a DCT-II of length N by one real DFT of the same length and N rotations.
 *
 *     C[k] = sum over n of x[n] cos(pi/N (n + 1/2) k)
 *
 * With v the samples of even places, then those of odd places backwards, and V their DFT (Makhoul
 * 1980): C[k] = Re(exp(-i pi k / (2N)) V[k]), and, as V[N - k] is conjugate to V[k],
 * C[N - k] = -Im(exp(-i pi k / (2N)) V[k]).
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

enum { N = 48 };

static RvnStatus dct2(const double* x, double* C)
{
    double v[N], V[N + 2];
    for (int n = 0; n < N / 2; ++n) {
        v[n] = x[2 * n];
        v[N - 1 - n] = x[2 * n + 1];
    }
    const RvnStatus status = rvngDFTFwd_RToCCS_48_64f(v, V, RvnScaleNone);
    for (int k = 0; k <= N / 2; ++k) {
        const double c = cos(acos(-1.0) * k / (2 * N)), s = sin(acos(-1.0) * k / (2 * N));
        C[k] = c * V[2 * k] + s * V[2 * k + 1];
        if (k > 0)
            C[N - k] = s * V[2 * k] - c * V[2 * k + 1];
    }
    return status;
}

int main(void)
{
    double x[N], C[N], largest = 0;
    for (int n = 0; n < N; ++n)
        x[n] = (n * n % 17 - 8) / 8.0;
    if (dct2(x, C) != RvnStatusNoError)
        return 1;
    for (int k = 0; k < N; ++k) {
        double sum = 0;
        for (int n = 0; n < N; ++n)
            sum += x[n] * cos(acos(-1.0) / N * (n + 0.5) * k);
        largest = fmax(largest, fabs(C[k] - sum));
    }
    printf("the DCT-II agrees with its definition within %.1e\n", largest);
    return largest < 1e-13 ? 0 : 1;
}
