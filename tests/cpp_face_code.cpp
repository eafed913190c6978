// Functions of the C++ header that are compiled by themselves, for the test of their code.

#include "rvngenmx.hpp"

namespace rvng
{

template Status dftForward<48>(std::span<const std::complex<double>, 48>,
                               std::span<std::complex<double>, 48>, Scale);
template Status dftForward<7>(std::span<const std::complex<float>, 7>,
                              std::span<std::complex<float>, 7>, Scale);
template Status dftInverse<64>(std::span<const std::complex<float>, 64>,
                               std::span<std::complex<float>, 64>, Scale);
template Status dftForward<Ccs, 48>(std::span<const double, 48>, std::span<double, 50>, Scale);
template Status dftForward<Pack, 5>(std::span<const float, 5>, std::span<float, 5>, Scale);
template Status dftInverse<Perm, 32>(std::span<const double, 32>, std::span<double, 32>, Scale);
template Status hartley<63>(std::span<const float, 63>, std::span<float, 63>, Scale);
template Status wht<3>(std::span<const double, 8>, std::span<double, 8>, Scale);

} // namespace rvng
