#include "tuned_kernels.h"

namespace rvn::bench
{

std::vector<TunedKernel> tunedKernels()
{
    std::vector<TunedKernel> kernels;
    for (const bool isDouble : {false, true}) {
        const std::string suffix = isDouble ? "_64f" : "_32f";
        for (int N = 2; N <= 64; ++N) {
            const std::string length = "_" + std::to_string(N) + suffix;
            kernels.push_back({"dft_complex" + length + "c",
                               {"rvngDFTFwd_CToC" + length + "c", "rvngDFTInv_CToC" + length + "c"},
                               isDouble,
                               false});
            kernels.push_back({"dft_real_fwd" + length,
                               {"rvngDFTFwd_RToCCS" + length, "rvngDFTFwd_RToPerm" + length},
                               isDouble,
                               false});
            kernels.push_back({"dft_real_inv" + length,
                               {"rvngDFTInv_CCSToR" + length, "rvngDFTInv_PermToR" + length},
                               isDouble,
                               false});
            kernels.push_back({"hartley" + length, {"rvngHartley" + length}, isDouble, false});
        }
        for (int order = 1; order <= 13; ++order) {
            const std::string name = "_" + std::to_string(order) + suffix;
            kernels.push_back({"wht" + name, {"rvngWHT" + name}, isDouble, true});
        }
    }
    return kernels;
}

} // namespace rvn::bench
