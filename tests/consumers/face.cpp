// The C++ header: a kernel by its length, and a plan.
#include <rvngenmx.hpp>

#include <array>

int main()
{
    std::array<float, 48> signal = {1};
    std::array<float, rvng::Ccs::size(48)> spectrum;
    if (rvng::dftForward<rvng::Ccs, 48>(signal, spectrum, rvng::Scale::None) !=
        rvng::Status::NoError)
        return 1;
    rvng::Dct4<float> plan(16);
    const rvng::Status status = plan.run(std::span(signal).first(16), std::span(signal).first(16));
    return status == rvng::Status::NoError && spectrum[rvng::Ccs::re(24, 48)] == 1 ? 0 : 2;
}
