/* A program that calls a single kernel. */
#include <rvngenmx.h>

int main(void)
{
    Rvn64fc x[48] = {{1, 0}};
    return rvngDFTFwd_CToC_48_64fc(x, x, RvnScaleNone) == RvnStatusNoError && x[47].re == 1 ? 0 : 1;
}
