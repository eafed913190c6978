/* walsh_hadamard.c - work memory of the caller's: nothing is allocated in a call. Each of 1024
 * users sends a bit on a code of its own, a row of the Hadamard matrix; one transform reads all.
 */
#include <rvngenmx.h>

#include <stdio.h>
#include <stdlib.h>

enum { order = 10, users = 1 << order };

int main(void)
{
    int32_t bytes = 0;
    if (rvngWHTGetBufferSize_32f(order, &bytes) != RvnStatusNoError)
        return 1;
    void* const buffer = malloc((size_t)bytes);
    if (buffer == NULL)
        return 1;

    static float bits[users], channel[users];
    for (int user = 0; user < users; ++user)
        bits[user] = user * 37 % 5 < 2 ? -1.0F : 1.0F;

    /* The sum of all codes times their bits is a transform; so is its way back. */
    RvnStatus status = rvngWHT_10_32f(bits, channel, RvnScaleNone, buffer);
    if (status == RvnStatusNoError)
        status = rvngWHT_10_32f(channel, channel, RvnScaleFwdByN, buffer);
    free(buffer);
    int wrong = 0;
    for (int user = 0; user < users; ++user)
        wrong += channel[user] != bits[user];
    printf("%d bits of work memory of %d bytes, %d wrong\n", users, (int)bytes, wrong);
    return status == RvnStatusNoError && wrong == 0 ? 0 : 1;
}
