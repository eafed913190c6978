/* The public header is plain C99: it can be included twice, its types have the layout it promises,
 * and a C program reaches a kernel, a dispatcher and the version record with exact prototypes.
 */
#include <rvngenmx.h>
#include <rvngenmx.h> /* NOLINT: on purpose */

#include <stddef.h>

/* An array of negative size, hence an error, unless the condition holds. */
typedef char rvn32fcIsAPairOfFloats[sizeof(Rvn32fc) == 8 && offsetof(Rvn32fc, im) == 4 ? 1 : -1];
typedef char rvn64fcIsAPairOfDoubles[sizeof(Rvn64fc) == 16 && offsetof(Rvn64fc, im) == 8 ? 1 : -1];
typedef char plainIntegers[sizeof(RvnStatus) == 4 && sizeof(RvnScaleFlag) == 4 ? 1 : -1];

/* Programs that are compiled already hold the values. */
typedef char statuses[RvnStatusNoError == 0 && RvnStatusBadMode == -5 && RvnStatusSizeError == -6 &&
                              RvnStatusNullPointer == -8 && RvnStatusFlagError == -16
                          ? 1
                          : -1];
typedef char
    flags[RvnScaleFwdByN == 1 && RvnScaleInvByN == 2 && RvnScaleBySqrtN == 4 && RvnScaleNone == 8
              ? 1
              : -1];

int main(void)
{
    RvnStatus (*const kernel)(const Rvn32fc*, Rvn32fc*, RvnScaleFlag) = rvngDFTFwd_CToC_2_32fc;
    RvnStatus (*const dispatcher)(const Rvn64fc*, Rvn64fc*, int32_t, RvnScaleFlag) =
        rvngDFTInv_CToC_64fc;
    const RvnLibraryVersion* const version = rvngenGetLibVersion();
    const Rvn32fc x[2] = {{1, 2}, {3, 5}};
    const Rvn64fc y[2] = {{1, 2}, {3, 5}};
    Rvn32fc X[2] = {{0, 0}, {0, 0}};
    Rvn64fc Y[2] = {{0, 0}, {0, 0}};
    if (kernel(x, X, RvnScaleNone) != RvnStatusNoError || X[1].re != -2 || X[1].im != -3)
        return 1;
    if (dispatcher(y, Y, 2, RvnScaleInvByN) != RvnStatusNoError || Y[0].re != 2 || Y[0].im != 3.5)
        return 2;
    return version->major == 6 && version->targetCode[0] == 'm' ? 0 : 3;
}
