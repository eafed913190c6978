// A step that lasts is announced, wherever it stands: a line stays silent for the steps of the next
// few seconds only.

#include "progress.h"

#include <cstdio>
#include <utility>

#include <unistd.h>

namespace
{

constexpr std::chrono::seconds silence(5);
constexpr const char* toEmptyLine = "\r\033[K";

bool isTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

} // namespace

Progress::Progress(std::string ofTask, std::size_t ofSteps)
    : task(std::move(ofTask)), steps(ofSteps)
{
}

Progress::~Progress()
{
    clear();
}

void Progress::step(const std::string& name)
{
    ++begun;
    const auto now = std::chrono::steady_clock::now();
    const bool isDue = begun == 1 || now - told >= silence;
    if (!isTerminal() && !isDue)
        return;
    std::fprintf(stderr, "%s%s: %s, %zu of %zu%s", isTerminal() ? toEmptyLine : "", task.c_str(),
                 name.c_str(), begun, steps, isTerminal() ? "" : "\n");
    told = now;
}

void Progress::clear() const
{
    if (isTerminal())
        std::fputs(toEmptyLine, stderr);
}
