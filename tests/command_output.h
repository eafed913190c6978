// What a command of the binutils prints, by lines.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace rvn::tests
{

inline std::vector<std::string> linesOf(const std::string& command)
{
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    for (int c = std::getc(pipe); c != EOF; c = std::getc(pipe))
        output += static_cast<char>(c);
    EXPECT_EQ(pclose(pipe), 0) << command;
    std::istringstream text(output);
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

} // namespace rvn::tests
