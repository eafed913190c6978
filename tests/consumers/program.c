/* One function of each kind: a kernel, a dispatcher, and a plan in memory of the allocator. */
#include <rvngenmx.h>

int main(void)
{
    const Rvn64fc x[4] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    Rvn64fc X[4];
    double samples[8] = {1};
    RvnDCT4Spec_64f* plan;
    if (rvngDFTFwd_CToC_4_64fc(x, X, RvnScaleFwdByN) != RvnStatusNoError || X[1].re != 1)
        return 1;
    if (rvngDFTInv_CToC_64fc(X, X, 4, RvnScaleFwdByN) != RvnStatusNoError || X[2].re != -1)
        return 2;
    if (rvngDCT4InitAlloc_64f(&plan, 8) != RvnStatusNoError ||
        rvngDCT4_64f(samples, samples, plan) != RvnStatusNoError || !(samples[0] > 0.99))
        return 3;
    return rvngDCT4Free_64f(plan) == RvnStatusNoError ? 0 : 4;
}
