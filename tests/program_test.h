// Tests of a built program: each runs it in a folder of its own and reads what it printed and
// wrote.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include <sys/wait.h>

namespace rvn::tests
{

struct RunResult {
    int status;
    std::string out, err;

    // What a pattern's group finds in the output.
    std::string found(const std::string& pattern) const
    {
        std::smatch match;
        if (std::regex_search(out, match, std::regex(pattern)))
            return match[1];
        ADD_FAILURE() << pattern << " not found in\n" << out << err;
        return "nan";
    }
};

class ProgramTest : public testing::Test
{
protected:
    explicit ProgramTest(const std::string& program) : program_(program)
    {
        std::string name =
            (std::filesystem::temp_directory_path() / "program_test.XXXXXX").string();
        directory_ = mkdtemp(name.data());
    }
    ~ProgramTest() override { std::filesystem::remove_all(directory_); }

    std::string path(const std::string& name) const { return (directory_ / name).string(); }

    std::string content(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(path(name), std::ios::binary).rdbuf();
        return text.str();
    }

    void put(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name), std::ios::binary) << text;
    }

    // Runs the program in the test's folder; the shell commands before go first.
    RunResult run(const std::string& arguments, const std::string& before = "") const
    {
        const std::string command = "cd '" + directory_.string() + "'; " + before + " '" +
                                    program_ + "' " + arguments + " >stdout.txt 2>stderr.txt";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content("stdout.txt"),
                content("stderr.txt")};
    }

    std::filesystem::path directory_;

private:
    std::string program_;
};

} // namespace rvn::tests
