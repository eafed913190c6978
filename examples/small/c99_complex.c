/* c99_complex.c - double complex of C99 in place of Rvn64fc. The cast is allowed: C99 (6.2.5) gives a
 * complex number the representation and alignment of an array of two doubles, real part first, which
 * is what the structure is; and the library, a file of its own, reads and writes doubles only.
 */
#include <rvngenmx.h>

#include <complex.h>
#include <math.h>
#include <stdio.h>

enum { length = 20 };

static RvnStatus forward(const double complex* x, double complex* X)
{
    return rvngDFTFwd_CToC_20_64fc((const Rvn64fc*)x, (Rvn64fc*)X, RvnScaleFwdByN);
}

int main(void)
{
    double complex x[length], X[length];
    for (int n = 0; n < length; ++n)
        x[n] = (3 + 4 * I) * cexp(2 * I * acos(-1.0) * 7 * n / length);
    if (forward(x, X) != RvnStatusNoError)
        return 1;
    double rest = 0;
    for (int k = 0; k < length; ++k)
        rest += k == 7 ? 0 : cabs(X[k]);
    printf("X[7] = %.3f %+.3fi, all others together %.1e\n", creal(X[7]), cimag(X[7]), rest);
    return cabs(X[7] - (3 + 4 * I)) < 1e-14 && rest < 1e-13 ? 0 : 1;
}
