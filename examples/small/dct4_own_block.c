/* dct4_own_block.c - a DCT-IV plan in memory of the caller's: ask for the size, provide the block,
 * run as often as needed. There is nothing to free but the block.
 */
#include <rvngenmx.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

enum { length = 512 };

int main(void)
{
    int32_t bytes = 0;
    if (rvngDCT4GetSize_64f(length, &bytes) != RvnStatusNoError)
        return 1;
    void* const block = malloc((size_t)bytes);
    RvnDCT4Spec_64f* plan = NULL;
    if (block == NULL || rvngDCT4Init_64f(&plan, length, block) != RvnStatusNoError) {
        free(block);
        return 1;
    }

    double x[length], X[length], y[length];
    for (int n = 0; n < length; ++n)
        x[n] = exp(-0.01 * n) * cos(0.3 * n);
    /* Twice the transform is N/2 times the input. */
    const int isDone = rvngDCT4_64f(x, X, plan) == RvnStatusNoError &&
                       rvngDCT4_64f(X, y, plan) == RvnStatusNoError;
    free(block);
    if (!isDone)
        return 1;

    double largest = 0;
    for (int n = 0; n < length; ++n)
        largest = fmax(largest, fabs(y[n] * 2 / length - x[n]));
    printf("a plan of %d bytes; there and back within %.1e\n", (int)bytes, largest);
    return largest < 1e-14 ? 0 : 1;
}
