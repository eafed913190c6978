// The processor by its own name, the load of the machine, the compiler, the date, the versions of
// the library and its peers.

#include "machine.h"

#include "rvngenmx.h"

#include <fftw3.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <thread>

namespace
{

#if defined(__clang__)
constexpr const char* compiler = __VERSION__;
#else
constexpr const char* compiler = "g++ " __VERSION__;
#endif

std::string date()
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    std::array<char, 64> text = {};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M %Z", &local);
    return text.data();
}

std::string load()
{
    double lastMinute = 0;
    if (getloadavg(&lastMinute, 1) != 1)
        return "load unknown";
    std::array<char, 64> text = {};
    std::snprintf(text.data(), text.size(), "load of the last minute %.2f", lastMinute);
    return text.data();
}

} // namespace

std::string processor()
{
    std::ifstream information("/proc/cpuinfo");
    for (std::string line; std::getline(information, line);)
        if (line.starts_with("model name") && line.find(": ") != line.npos)
            return line.substr(line.find(": ") + 2);
    return "unknown processor";
}

std::vector<std::string> machineLines()
{
    const RvnLibraryVersion& library = *rvngenGetLibVersion();
    const std::string count = std::to_string(std::thread::hardware_concurrency());
    return {
        "machine   " + processor() + ", " + count + " processors, " + load(),
        "date      " + date(),
        std::string("compiler  ") + compiler,
        std::string("library   ") + library.name + ", " + library.version,
        std::string("peers     ") + fftw_version + ", KissFFT " KISSFFT_VERSION,
    };
}
