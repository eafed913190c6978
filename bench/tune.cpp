// rvngenmx_tune: how several builds of the library compare, kernel by kernel and in the mean.
//
//   rvngenmx_tune LIST NAME=LIBRARY NAME=LIBRARY...
//
// The list is cmake/kernels.tsv, the libraries are builds by different tuning rules. Prints, by
// family and precision, the time of each library beside the first in the geometric mean, then the
// kernels that differ by more than a rule of their own would have to gain.
//
// A time is the least of many short runs, the libraries taking turns: the machine may be shared.
// Each library is loaded from several copies of its file, since now and then the pages of one file
// make a kernel slower by a multiple, and those of its copy do not.

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <numeric>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

constexpr int copies = 3;
constexpr std::size_t rounds = 40;
constexpr double runSeconds = 15e-6;
constexpr double worthARule = 0.05;
constexpr std::size_t bufferBytes = 1 << 18;

struct Kernel {
    std::string name;
    std::vector<std::string> functions;

    bool isDouble() const { return name.find("_64f") != std::string::npos; }
    bool takesBuffer() const { return name.starts_with("wht"); }

    std::string family() const
    {
        return name.substr(0, name.find_first_of("0123456789")) + (isDouble() ? "64" : "32");
    }
};

struct Library {
    std::string name;
    std::vector<void*> copies;
};

// Copies live as long as the program: their names are removed at once. Each has a name of its own,
// since the dynamic linker takes a name that it knows for the library that it knows.
std::vector<void*> openCopies(const fs::path& library)
{
    static int opened = 0;
    std::vector<void*> handles;
    for (int i = 0; i < copies; ++i) {
        const fs::path copy =
            fs::temp_directory_path() /
            ("rvngenmx_tune_" + std::to_string(getpid()) + "_" + std::to_string(++opened) + ".so");
        fs::copy_file(library, copy, fs::copy_options::overwrite_existing);
        void* const handle = dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
        const std::string error = handle == nullptr ? dlerror() : "";
        fs::remove(copy);
        if (handle == nullptr)
            throw std::runtime_error(error);
        handles.push_back(handle);
    }
    return handles;
}

// The exported kernels: those of the DCT-IV engine have no name outside.
std::vector<Kernel> readList(const fs::path& path)
{
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    std::vector<Kernel> kernels;
    for (std::string line; std::getline(file, line);) {
        std::istringstream columns(line);
        std::string kernel, options, functions;
        columns >> kernel >> options >> functions;
        if (!functions.starts_with("rvng"))
            continue;
        std::istringstream names(functions);
        kernels.push_back({fs::path(kernel).stem().string(), {}});
        for (std::string name; std::getline(names, name, ',');)
            kernels.back().functions.push_back(name);
    }
    return kernels;
}

struct Buffers {
    alignas(64) std::array<std::byte, bufferBytes> source;
    std::array<std::byte, 1344> gap;
    std::array<std::byte, bufferBytes> destination;
    std::array<std::byte, bufferBytes> work;
};

void fill(Buffers& buffers, bool isDouble)
{
    for (std::size_t i = 0; i < bufferBytes / 8; ++i) {
        const double value = std::sin(static_cast<double>(i * i + 3 * i));
        const auto narrow = static_cast<float>(value);
        if (isDouble)
            std::copy_n(reinterpret_cast<const std::byte*>(&value), 8, &buffers.source[8 * i]);
        else
            std::copy_n(reinterpret_cast<const std::byte*>(&narrow), 4, &buffers.source[4 * i]);
    }
}

double secondsOf(void* library, const std::string& name, bool takesBuffer, Buffers& buffers,
                 int calls)
{
    void* const kernel = dlsym(library, name.c_str());
    if (kernel == nullptr)
        throw std::runtime_error("no function " + name);
    const auto plain = reinterpret_cast<int (*)(const void*, void*, int)>(kernel);
    const auto buffered = reinterpret_cast<int (*)(const void*, void*, int, void*)>(kernel);
    constexpr int scaleNone = 8;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i)
        if (takesBuffer)
            buffered(buffers.source.data(), buffers.destination.data(), scaleNone,
                     buffers.work.data());
        else
            plain(buffers.source.data(), buffers.destination.data(), scaleNone);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count() / calls;
}

// The time of a kernel's functions in each library.
std::vector<double> measure(const Kernel& kernel, std::span<const Library> libraries,
                            Buffers& buffers)
{
    std::vector<double> sums(libraries.size());
    for (const std::string& name : kernel.functions) {
        const auto time = [&](void* library, int calls) {
            return secondsOf(library, name, kernel.takesBuffer(), buffers, calls);
        };
        int calls = 1;
        while (time(libraries[0].copies[0], calls) * calls < runSeconds)
            calls *= 2;
        std::vector<double> least(libraries.size(), 1);
        for (std::size_t round = 0; round < rounds; ++round)
            for (int copy = 0; copy < copies; ++copy)
                for (std::size_t turn = 0; turn < libraries.size(); ++turn) {
                    // No library is always the one behind the same other.
                    const std::size_t i = (turn + round) % libraries.size();
                    least[i] = std::min(least[i], time(libraries[i].copies[copy], calls));
                }
        for (std::size_t i = 0; i < libraries.size(); ++i)
            sums[i] += least[i];
    }
    return sums;
}

void compare(const std::vector<Kernel>& kernels, std::span<const Library> libraries)
{
    static Buffers buffers;
    std::map<std::string, std::vector<std::vector<double>>> byFamily; // logarithms of ratios
    std::string apart;
    for (const Kernel& kernel : kernels) {
        fill(buffers, kernel.isDouble());
        const std::vector<double> seconds = measure(kernel, libraries, buffers);
        std::vector<double> logarithms;
        std::ostringstream line;
        line.precision(3);
        line << kernel.name;
        for (const double one : seconds) {
            logarithms.push_back(std::log(one / seconds[0]));
            line << "\t" << one / seconds[0];
        }
        byFamily[kernel.family()].push_back(logarithms);
        const auto [least, most] = std::ranges::minmax(seconds);
        if (most > least * (1 + worthARule))
            apart += line.str() + "\n";
        std::fprintf(stderr, "\r%-24s", kernel.name.c_str());
    }
    std::fprintf(stderr, "\n");
    std::printf("time beside %s\n", libraries[0].name.c_str());
    for (const auto& [family, rows] : byFamily) {
        std::printf("%-18s", family.c_str());
        for (std::size_t i = 1; i < libraries.size(); ++i) {
            const double sum = std::accumulate(
                rows.begin(), rows.end(), 0.0,
                [i](double total, const std::vector<double>& row) { return total + row[i]; });
            std::printf("  %s %.3f", libraries[i].name.c_str(),
                        std::exp(sum / static_cast<double>(rows.size())));
        }
        std::printf("\n");
    }
    std::printf("\nkernels more than %.0f %% apart\n%s", 100 * worthARule, apart.c_str());
}

} // namespace

int main(int count, char* arguments[])
{
    try {
        const std::span<char* const> all(arguments, static_cast<std::size_t>(count));
        if (all.size() < 4)
            throw std::invalid_argument("usage: rvngenmx_tune LIST NAME=LIBRARY NAME=LIBRARY...");
        std::vector<Library> libraries;
        for (const std::string argument : all.subspan(2)) {
            const std::size_t equals = argument.find('=');
            if (equals == std::string::npos)
                throw std::invalid_argument("not NAME=LIBRARY: " + argument);
            libraries.push_back(
                {argument.substr(0, equals), openCopies(argument.substr(equals + 1))});
        }
        compare(readList(all[1]), libraries);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "rvngenmx_tune: %s\n", error.what());
        return 1;
    }
}
