// What a command of the binutils prints, by lines.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace rvn::tests
{

inline std::vector<std::string> linesOf(const std::string& command)
{
    std::vector<std::string> lines;
    FILE* const pipe = popen(command.c_str(), "r");
    char* line = nullptr;
    std::size_t size = 0;
    for (ssize_t count = getline(&line, &size, pipe); count > 0;
         count = getline(&line, &size, pipe))
        lines.emplace_back(line, line[count - 1] == '\n' ? count - 1 : count);
    std::free(line);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return lines;
}

} // namespace rvn::tests
