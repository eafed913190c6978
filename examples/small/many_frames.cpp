// many_frames.cpp - many short frames on all cores with the standard parallel algorithms. A
// transform keeps no state and takes no lock, so threads are the caller's choice and share nothing.
#include <rvngenmx.hpp>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <complex>
#include <cstdio>
#include <execution>
#include <numeric>
#include <thread>
#include <vector>

constexpr std::size_t N = 64, frameCount = 20000;
using Frame = std::array<std::complex<float>, N>;

int main()
{
    std::vector<Frame> frames(frameCount), spectra(frameCount);
    for (std::size_t f = 0; f < frameCount; ++f)
        frames[f][f % N] = 1;

    std::atomic<bool> isRefused = false;
    double oneShare = 0;
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    for (unsigned shares = 1; shares <= cores; shares *= 2) {
        std::vector<std::size_t> share(shares);
        std::iota(share.begin(), share.end(), 0);
        double seconds = 1e9; // the best of some passes: the first one starts the threads
        for (int pass = 0; pass < 8; ++pass) {
            const auto start = std::chrono::steady_clock::now();
            std::for_each(std::execution::par, share.begin(), share.end(), [&](std::size_t s) {
                const std::size_t end = (s + 1) * frameCount / shares;
                for (std::size_t f = s * frameCount / shares; f < end; ++f)
                    if (rvng::dftForward<N>(frames[f], spectra[f], rvng::Scale::None) !=
                        rvng::Status::NoError)
                        isRefused = true;
            });
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
            seconds = std::min(seconds, time.count());
        }
        oneShare = shares == 1 ? seconds : oneShare;
        std::printf("%3u at once: %5.1f million frames a second, %.2f times one\n", shares,
                    frameCount / seconds / 1e6, oneShare / seconds);
    }
    const bool isRight = std::all_of(spectra.begin(), spectra.end(), [](const Frame& X) {
        return X[0] == std::complex<float>(1); // every frame was an impulse
    });
    return isRight && !isRefused ? 0 : 1;
}
