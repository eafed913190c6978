// rvngenmx_tune: which of several builds of the library has the fastest form of each kernel.
//
//   rvngenmx_tune TABLE ORDER/OPTIONS=LIBRARY...
//
// Prints the table anew: its comments, its default lines and the lines of kernels that are not
// measured as they are, and a line for every kernel that is faster in another form than in the
// default one by more than the noise. The libraries are those that tools/tune builds, a form each.
//
// A time is the least of many short runs, the libraries taking turns: the machine may be shared.
// Each library is loaded from several copies of its file, since now and then the pages of one file
// make a kernel slower by a multiple, and those of its copy do not.

#include "tuned_kernels.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <span>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

#include <dlfcn.h>

namespace rvn::bench
{

namespace
{

namespace fs = std::filesystem;

constexpr int copies = 3;
constexpr int rounds = 80;
constexpr double runSeconds = 15e-6;
constexpr double noise = 0.015; // a gain that is not worth a line
constexpr double tie = 0.005;   // between forms, of which the first is taken
constexpr std::size_t bufferBytes = 1 << 18;

using Kernel = void*; // the address; a kernel takes a buffer or does not

struct Form {
    std::string order;
    std::string options;
    std::vector<void*> libraries; // the copies
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

Form formOf(const std::string& argument)
{
    const std::size_t slash = argument.find('/');
    const std::size_t equals = argument.find('=');
    if (slash == std::string::npos || equals == std::string::npos || equals < slash)
        throw std::invalid_argument("not ORDER/OPTIONS=LIBRARY: " + argument);
    return {argument.substr(0, slash), argument.substr(slash + 1, equals - slash - 1),
            openCopies(argument.substr(equals + 1))};
}

Kernel kernelOf(void* library, const std::string& name)
{
    void* const symbol = dlsym(library, name.c_str());
    if (symbol == nullptr)
        throw std::runtime_error("no function " + name);
    return symbol;
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

double secondsOf(Kernel kernel, bool takesBuffer, Buffers& buffers, int calls)
{
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

// The time of a kernel's functions in each form.
std::vector<double> measure(const TunedKernel& kernel, const std::vector<Form>& forms,
                            Buffers& buffers)
{
    std::vector<double> sums(forms.size());
    for (const std::string& name : kernel.functions) {
        int calls = 1;
        while (
            secondsOf(kernelOf(forms[0].libraries[0], name), kernel.takesBuffer, buffers, calls) *
                calls <
            runSeconds)
            calls *= 2;
        std::vector<double> least(forms.size(), 1);
        for (int round = 0; round < rounds; ++round)
            for (int copy = 0; copy < copies; ++copy)
                for (std::size_t f = 0; f < forms.size(); ++f)
                    least[f] =
                        std::min(least[f], secondsOf(kernelOf(forms[f].libraries[copy], name),
                                                     kernel.takesBuffer, buffers, calls));
        for (std::size_t f = 0; f < forms.size(); ++f)
            sums[f] += least[f];
    }
    return sums;
}

struct Line {
    std::string kernel;
    std::string order;
    std::string options;
};

std::string textOf(const Line& line)
{
    std::array<char, 160> text{};
    std::snprintf(text.data(), text.size(), "%-24s %-16s %s", line.kernel.c_str(),
                  line.order.c_str(), line.options.c_str());
    return text.data();
}

void tune(const fs::path& table, const std::vector<Form>& forms)
{
    const std::vector<TunedKernel> kernels = tunedKernels();
    std::map<std::string, Line> defaults;
    std::vector<Line> kept;
    std::ifstream file(table);
    if (!file)
        throw std::runtime_error("cannot read " + table.string());
    for (std::string text; std::getline(file, text);) {
        if (text.empty())
            continue;
        std::istringstream words(text);
        Line line;
        words >> line.kernel >> line.order >> line.options;
        if (text.starts_with("#"))
            std::puts(text.c_str());
        else if (line.kernel.starts_with("default_"))
            defaults[line.kernel] = line;
        else if (std::ranges::find(kernels, line.kernel, &TunedKernel::file) == kernels.end())
            kept.push_back(line);
    }
    for (const auto& [name, line] : defaults)
        std::puts(textOf(line).c_str());

    static Buffers buffers;
    std::size_t timed = 0;
    for (const TunedKernel& kernel : kernels) {
        fill(buffers, kernel.isDouble);
        const Line& byDefault = defaults.at(kernel.isDouble ? "default_64" : "default_32");
        const auto isDefault = [&](const Form& form) {
            return form.order == byDefault.order && form.options == byDefault.options;
        };
        const auto defaultForm = std::ranges::find_if(forms, isDefault);
        if (defaultForm == forms.end())
            throw std::runtime_error("no library has the default form");
        const std::vector<double> seconds = measure(kernel, forms, buffers);
        const double least = std::ranges::min(seconds);
        const auto best = std::ranges::find_if(
                              seconds, [&](double value) { return value <= least * (1 + tie); }) -
                          seconds.begin();
        const double gain = seconds[defaultForm - forms.begin()] / seconds[best] - 1;
        if (gain > noise)
            std::puts(textOf({kernel.file, forms[best].order, forms[best].options}).c_str());
        std::fprintf(stderr, "%4zu of %zu: %-22s %9.1f ns  %s %s  %+.1f %%\n", ++timed,
                     kernels.size(), kernel.file.c_str(), seconds[best] * 1e9,
                     forms[best].order.c_str(), forms[best].options.c_str(), 100 * gain);
    }
    for (const Line& line : kept)
        std::puts(textOf(line).c_str());
}

} // namespace

} // namespace rvn::bench

int main(int count, char* arguments[])
{
    try {
        const std::span<char* const> all(arguments, static_cast<std::size_t>(count));
        if (all.size() < 4)
            throw std::invalid_argument("usage: rvngenmx_tune TABLE ORDER/OPTIONS=LIBRARY...");
        std::vector<rvn::bench::Form> forms;
        for (const char* const argument : all.subspan(2))
            forms.push_back(rvn::bench::formOf(argument));
        rvn::bench::tune(all[1], forms);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "rvngenmx_tune: %s\n", error.what());
        return 1;
    }
}
