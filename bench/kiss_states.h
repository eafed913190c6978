// KissFFT: its prepared states behind a shared pointer that releases them. The package is built for
// binary32.
#pragma once

#include "options.h"

#include <kiss_fft.h>
#include <kiss_fftr.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <type_traits>

template <typename Config> using KissState = std::shared_ptr<std::remove_pointer_t<Config>>;

template <typename Config>
KissState<Config> planKiss(Config (*allocate)(int, int, void*, std::size_t*), int length,
                           Direction direction)
{
    const int inverse = direction == Direction::Inverse;
    KissState<Config> state(allocate(length, inverse, nullptr, nullptr), kiss_fft_free);
    if (!state)
        throw std::runtime_error("KissFFT made no state");
    return state;
}
