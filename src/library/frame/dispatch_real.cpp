// The dispatchers of the real DFT and of the Hartley transform.

#include "frame/dispatch.h"

// clang-format off
RVN_LENGTH_DISPATCHER(rvngDFTFwd_RToCCS,  32f, float)
RVN_LENGTH_DISPATCHER(rvngDFTFwd_RToCCS,  64f, double)
RVN_LENGTH_DISPATCHER(rvngDFTFwd_RToPack, 32f, float)
RVN_LENGTH_DISPATCHER(rvngDFTFwd_RToPack, 64f, double)
RVN_LENGTH_DISPATCHER(rvngDFTFwd_RToPerm, 32f, float)
RVN_LENGTH_DISPATCHER(rvngDFTFwd_RToPerm, 64f, double)
RVN_LENGTH_DISPATCHER(rvngDFTInv_CCSToR,  32f, float)
RVN_LENGTH_DISPATCHER(rvngDFTInv_CCSToR,  64f, double)
RVN_LENGTH_DISPATCHER(rvngDFTInv_PackToR, 32f, float)
RVN_LENGTH_DISPATCHER(rvngDFTInv_PackToR, 64f, double)
RVN_LENGTH_DISPATCHER(rvngDFTInv_PermToR, 32f, float)
RVN_LENGTH_DISPATCHER(rvngDFTInv_PermToR, 64f, double)
RVN_LENGTH_DISPATCHER(rvngHartley,        32f, float)
RVN_LENGTH_DISPATCHER(rvngHartley,        64f, double)
// clang-format on
