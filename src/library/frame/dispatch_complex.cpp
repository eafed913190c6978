// The dispatchers of the complex DFT.

#include "frame/dispatch.h"

// clang-format off
RVN_LENGTH_DISPATCHER(rvngDFTFwd_CToC, 32fc, Rvn32fc)
RVN_LENGTH_DISPATCHER(rvngDFTFwd_CToC, 64fc, Rvn64fc)
RVN_LENGTH_DISPATCHER(rvngDFTInv_CToC, 32fc, Rvn32fc)
RVN_LENGTH_DISPATCHER(rvngDFTInv_CToC, 64fc, Rvn64fc)
// clang-format on
