// typed_lengths.cpp - the C++ header: lengths in the type, layouts that know their places, a plan
// that frees itself.
#include <rvngenmx.hpp>

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

int main()
{
    using rvng::Ccs, rvng::Scale, rvng::Status;
    constexpr std::size_t N = 48;

    std::array<double, N> signal;
    for (std::size_t n = 0; n < N; ++n)
        signal[n] = std::cos(0.3 * static_cast<double>(n));
    std::array<double, Ccs::size(N)> spectrum; // 49 or 48 elements would not compile
    if (rvng::dftForward<Ccs, N>(signal, spectrum, Scale::ForwardByN) != Status::NoError)
        return 1;
    std::printf("R(2) = %+.3f, I(2) = %+.3f\n", spectrum[Ccs::re(2, N)], spectrum[Ccs::im(2, N)]);

    // The same array read as complex numbers, and the length at run time.
    std::vector<std::complex<double>> x(signal.begin(), signal.end()), X(N);
    if (rvng::dftForward(x, X, Scale::ForwardByN) != Status::NoError)
        return 1;
    const double difference =
        std::abs(X[2] - std::complex<double>(spectrum[Ccs::re(2, N)], spectrum[Ccs::im(2, N)]));

    rvng::Dct4<float> plan(1024);
    std::vector<float> samples(plan.size(), 1), coefficients(plan.size());
    if (plan.run(samples, coefficients) != Status::NoError)
        return 1;
    std::printf("the DCT-IV of ones begins with %.3f\n", coefficients[0]);
    return difference < 1e-15 && std::abs(coefficients[0] - 651.9) < 0.1 ? 0 : 1;
}
