/* real_spectrum.c - the spectrum of a real signal in the layout CCS, which a program reads as pairs
 * (R(k), I(k)), k from 0 to N/2.
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>

enum { length = 48 };

int main(void)
{
    const double pi = acos(-1.0);
    double signal[length], spectrum[length + 2];
    for (int n = 0; n < length; ++n)
        signal[n] = 0.25 + 2 * cos(2 * pi * 5 * n / length + 0.5) + sin(2 * pi * 12 * n / length);

    if (rvngDFTFwd_RToCCS_48_64f(signal, spectrum, RvnScaleFwdByN) != RvnStatusNoError)
        return 1;

    /* Each bin but the first and the last stands for two of the complex spectrum. */
    int found = 0;
    for (int k = 0; k <= length / 2; ++k) {
        const double re = spectrum[2 * k], im = spectrum[2 * k + 1];
        const double amplitude = hypot(re, im) * (k == 0 || k == length / 2 ? 1 : 2);
        if (amplitude > 1e-9) {
            printf("bin %2d: amplitude %.3f, phase %+.3f\n", k, amplitude, atan2(im, re));
            ++found;
        }
    }
    const int phaseIsRight = fabs(atan2(spectrum[11], spectrum[10]) - 0.5) < 1e-12;
    return found == 3 && phaseIsRight ? 0 : 1;
}
