/* run_time_length.c - the length is a number of the program's: the dispatcher. It finds, among the
 * lengths that are served, the one whose spectrum of a sine has the least leakage.
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

int main(void)
{
    /* A period of 11.5 samples: two periods fill 23, and four of them 46. */
    enum { longest = 64 };
    Rvn64fc x[longest];
    for (int n = 0; n < longest; ++n) {
        x[n].re = sin(2 * acos(-1.0) * n / 11.5);
        x[n].im = 0;
    }

    int bestLength = 0;
    double leastLeakage = INFINITY;
    for (int length = 20; length <= longest; ++length) {
        Rvn64fc X[longest];
        const RvnStatus status = rvngDFTFwd_CToC_64fc(x, X, length, RvnScaleFwdByN);
        if (status != RvnStatusNoError) {
            fprintf(stderr, "run_time_length: status %d for length %d\n", (int)status, length);
            return 1;
        }
        /* A whole number of periods leaves two bins of 1/4 each and nothing else. */
        double power = 0, strongest = 0;
        for (int k = 0; k < length; ++k) {
            const double binPower = X[k].re * X[k].re + X[k].im * X[k].im;
            power += binPower;
            strongest = fmax(strongest, binPower);
        }
        const double leakage = 1 - 2 * strongest / power;
        if (leakage < leastLeakage - 1e-12) {
            leastLeakage = leakage;
            bestLength = length;
        }
    }
    printf("least leakage at %d samples: %.1e of the power\n", bestLength, fabs(leastLeakage));
    return bestLength == 23 ? 0 : 1;
}
