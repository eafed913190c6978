// Our side of the DCT-IV: its functions of either precision under common names.
#pragma once

#include "rvngenmx.h"

template <typename Real> struct Dct4;

template <> struct Dct4<double> {
    using Spec = RvnDCT4Spec_64f;
    static constexpr auto planBytes = rvngDCT4GetSize_64f;
    static constexpr auto plan = rvngDCT4Init_64f;
    static constexpr auto transform = rvngDCT4_64f;
};

template <> struct Dct4<float> {
    using Spec = RvnDCT4Spec_32f;
    static constexpr auto planBytes = rvngDCT4GetSize_32f;
    static constexpr auto plan = rvngDCT4Init_32f;
    static constexpr auto transform = rvngDCT4_32f;
};
