// rvnkernelgen: writes the kernels and what is told of them. --help tells its use.
//
// It stops with a message and status 1 when a kernel does not have the tally of its plan.

#include "generator/families.h"
#include "generator/generate.h"
#include "generator/text/prototypes.h"

#include <algorithm>
#include <exception>
#include <iostream>

namespace
{

using namespace rvn::generator;

constexpr const char* usage =
    "usage: rvnkernelgen --tuning FILE --out DIR | --list | --statistics | --prototypes\n"
    "\n"
    "  --out DIR      write every kernel below DIR, a folder a family\n"
    "  --list         print a line a kernel: its file, its compiler options, its functions\n"
    "  --statistics   print a line a kernel: method, operations, conversions, order\n"
    "  --prototypes   print the public header of every kernel\n"
    "  --tuning FILE  the rules of which order and which options a kernel takes\n";

void writeKernels(const std::filesystem::path& folder, const std::vector<Kernel>& kernels,
                  const Tuning& tuning)
{
    for (const Kernel& kernel : kernels)
        writeFile(folder, generate(kernel, tuning));
    writeFile(folder, engineHeader());
}

// The largest first: a parallel build should not end with them.
void printList(std::vector<Kernel> kernels, const Tuning& tuning)
{
    std::ranges::stable_sort(kernels, std::greater(), [](const Kernel& kernel) {
        return kernel.parts.front().graph.nodes.size();
    });
    for (const Kernel& kernel : kernels)
        std::cout << listed(kernel, tuning) << "\n";
}

void printStatistics(const std::vector<Kernel>& kernels, const Tuning& tuning)
{
    std::cout << statisticsHead << "\n";
    for (const Kernel& kernel : kernels)
        std::cout << statistics(kernel, tuning) << "\n";
}

int run(const std::vector<std::string>& arguments)
{
    const std::size_t count = arguments.size();
    if (count == 1 && (arguments[0] == "--help" || arguments[0] == "-h")) {
        std::cout << usage;
        return 0;
    }
    const std::string task = count > 2 && arguments[0] == "--tuning" ? arguments[2] : "";
    const bool isWriting = task == "--out" && count == 4 && !arguments[3].empty();
    const bool isPrinting = task == "--list" || task == "--statistics" || task == "--prototypes";
    if (!isWriting && !(isPrinting && count == 3)) {
        std::cerr << "rvnkernelgen: cannot take these arguments (see --help)\n";
        return 2;
    }
    const std::vector<Kernel> kernels = everyKernel();
    std::vector<std::string> names;
    for (const Kernel& kernel : kernels)
        names.push_back(kernel.name);
    const Tuning tuning(arguments[1]);
    tuning.requireUse(names);

    if (isWriting)
        writeKernels(arguments[3], kernels, tuning);
    else if (task == "--list")
        printList(kernels, tuning);
    else if (task == "--statistics")
        printStatistics(kernels, tuning);
    else
        std::cout << prototypesText(kernels);
    if (!std::cout.flush())
        throw std::runtime_error("cannot write the output");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << "rvnkernelgen: " << error.what() << "\n";
        return 1;
    }
}
