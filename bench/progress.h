// What a run does at the moment and how far it is, on stderr: on a terminal a line that the next
// one replaces, elsewhere a line now and then.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

class Progress
{
public:
    // So many steps of something with this name.
    Progress(std::string task, std::size_t steps);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // The next step begins.
    void step(const std::string& name);

    // Makes room on the terminal for what is printed there next.
    void clear() const;

private:
    std::string task;
    std::size_t steps;
    std::size_t begun = 0;
    std::chrono::steady_clock::time_point told; // when a line was last left standing
};
