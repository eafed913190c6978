/* Prints the bits that kernels of 48 points give. */
#include <rvngenmx.h>

#include <stdio.h>

int main(void)
{
    Rvn32fc x[48];
    Rvn64fc y[48];
    for (int n = 0; n < 48; ++n) {
        x[n].re = 1 / (1.F + n);
        x[n].im = 1 / (3.F - 7 * n);
        y[n].re = 1 / (1. + n);
        y[n].im = 1 / (3. - 7 * n);
    }
    if (rvngDFTFwd_CToC_48_32fc(x, x, RvnScaleBySqrtN) != RvnStatusNoError ||
        rvngDFTFwd_CToC_48_64fc(y, y, RvnScaleBySqrtN) != RvnStatusNoError)
        return 1;
    for (int k = 0; k < 48; ++k)
        printf("%a %a %a %a\n", x[k].re, x[k].im, y[k].re, y[k].im);
    return 0;
}
