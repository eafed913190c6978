// Calls that do not fit what the C++ header's functions take. Each is one error, whose text names
// the function and says what it takes; the test reads the lines of this file that are marked so.
#include <rvngenmx.hpp>

#include <array>
#include <vector>

using rvng::Ccs, rvng::Pack, rvng::Perm;

constexpr auto scale = rvng::Scale::None;
template <std::size_t N, typename T = double> std::array<T, N> reals;
template <std::size_t N, typename T = double> std::array<std::complex<T>, N> complexes;
const std::array<std::complex<double>, 48> constant = {};
std::vector<std::complex<double>> vector(48);
std::array<std::byte, 8> bytes;

template <typename... Status> void use(Status...) {}

int main()
{
    use(rvng::dftForward<48>(complexes<47>, complexes<48>, scale));        // refused
    use(rvng::dftForward<48>(complexes<48>, complexes<49>, scale));        // refused
    use(rvng::dftForward<48>(complexes<48>, constant, scale));             // refused
    use(rvng::dftForward<48>(complexes<48, float>, complexes<48>, scale)); // refused
    use(rvng::dftForward<48>(complexes<48>, vector, scale));               // refused
    use(rvng::dftForward<48>(std::span(vector), complexes<48>, scale));    // refused
    use(rvng::dftForward<48>(reals<48>, reals<48>, scale));                // refused
    use(rvng::dftForward<1>(complexes<1>, complexes<1>, scale));           // refused
    use(rvng::dftForward<65>(complexes<65>, complexes<65>, scale));        // refused
    use(rvng::dftInverse<64>(complexes<63>, complexes<64>, scale));        // refused
    use(rvng::dftInverse<65>(complexes<65>, complexes<65>, scale));        // refused
    use(rvng::dftForward<Ccs, 48>(reals<48>, reals<48>, scale));           // refused
    use(rvng::dftForward<Ccs, 48>(reals<48>, reals<49>, scale));           // refused
    use(rvng::dftForward<Pack, 48>(reals<48>, reals<50>, scale));          // refused
    use(rvng::dftForward<Perm, 65>(reals<65>, reals<65>, scale));          // refused
    use(rvng::dftForward<int, 48>(reals<48>, reals<48>, scale));           // refused
    use(rvng::dftInverse<Ccs, 48>(reals<48>, reals<48>, scale));           // refused
    use(rvng::dftInverse<Perm, 48>(reals<48>, reals<48, float>, scale));   // refused
    use(rvng::hartley<5>(reals<5>, reals<6>, scale));                      // refused
    use(rvng::hartley<1>(reals<1>, reals<1>, scale));                      // refused
    use(rvng::wht<3>(reals<8>, reals<7>, scale));                          // refused
    use(rvng::wht<3>(reals<3>, reals<3>, scale));                          // refused
    use(rvng::wht<0>(reals<1>, reals<1>, scale));                          // refused
    use(rvng::wht<14>(reals<1 << 14>, reals<1 << 14>, scale));             // refused
    use(rvng::wht<3>(reals<8>, reals<8>, scale, reals<2>));                // refused

    // These fit.
    std::complex<double> plain[48] = {};
    use(rvng::dftForward<48>(plain, plain, scale));
    use(rvng::dftForward<48>(constant, complexes<48>, scale));
    use(rvng::dftForward<48>(std::span(vector).first<48>(), complexes<48>, scale));
    use(rvng::dftInverse<Ccs, 48>(reals<50>, reals<48>, scale));
    use(rvng::wht<3>(reals<8>, reals<8>, scale, bytes));
}
