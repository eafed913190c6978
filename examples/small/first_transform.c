/* first_transform.c - the smallest complete use of the library, in C99: the spectrum of a short
 * complex signal, once through the kernel of its length and once through the dispatcher, and back.
 *
 *     cc first_transform.c -lrvngenmx -lm
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

enum { length = 12 };

int main(void)
{
    /* One turn of exp(2 pi i 3 n / 12) every four samples, and a constant half as strong. */
    Rvn64fc x[length];
    for (int n = 0; n < length; ++n) {
        const double angle = 2 * acos(-1.0) * 3 * n / length;
        x[n].re = cos(angle) + 0.5;
        x[n].im = sin(angle);
    }

    /* The length is known: its kernel. RvnScaleFwdByN makes bins amplitudes. */
    Rvn64fc X[length];
    if (rvngDFTFwd_CToC_12_64fc(x, X, RvnScaleFwdByN) != RvnStatusNoError) {
        fputs("first_transform: the forward transform failed\n", stderr);
        return 1;
    }
    for (int k = 0; k < length; ++k)
        printf("X[%2d] = %+.3f %+.3fi\n", k, X[k].re, X[k].im);

    /* The length is a variable: the dispatcher. Here it works in place. */
    if (rvngDFTInv_CToC_64fc(X, X, length, RvnScaleFwdByN) != RvnStatusNoError) {
        fputs("first_transform: the inverse transform failed\n", stderr);
        return 1;
    }
    double largest = 0;
    for (int n = 0; n < length; ++n)
        largest = fmax(largest, hypot(X[n].re - x[n].re, X[n].im - x[n].im));
    printf("largest error of the way there and back: %.1e\n", largest);

    /* A length out of range is refused, and nothing is touched. */
    printf("status for 65 samples: %d\n", (int)rvngDFTFwd_CToC_64fc(x, X, 65, RvnScaleNone));
    return 0;
}
