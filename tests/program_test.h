// Tests of a built program: each runs it in a folder of its own and reads what it printed and
// wrote.
#pragma once

#include "pattern.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace rvn::tests
{

struct RunResult {
    int status;
    std::string out, err;

    // What a pattern's group finds in the output.
    std::string found(const std::string& pattern) const
    {
        if (const auto groups = Pattern(pattern).find(out); !groups.empty())
            return groups[1];
        ADD_FAILURE() << pattern << " not found in\n" << out << err;
        return "nan";
    }
    double number(const std::string& pattern) const { return std::stod(found(pattern)); }
};

// A command line that a program refuses, and words of what it says then.
struct Refusal {
    const char *arguments, *words;
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

    // Each of them ends in one line, with the program's name, and nothing is written.
    void expectRefusals(const std::vector<Refusal>& refusals) const
    {
        const std::string name = std::filesystem::path(program_).filename();
        put("stdout.txt", "");
        put("stderr.txt", "");
        const auto before = files();
        for (const Refusal& refusal : refusals) {
            SCOPED_TRACE(refusal.arguments);
            const RunResult result = run(refusal.arguments);
            EXPECT_TRUE(result.status == 1 || result.status == 2) << result.status;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err.find(name + ": "), 0u) << result.err;
            EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
            EXPECT_NE(result.err.find(refusal.words), std::string::npos) << result.err;
            EXPECT_EQ(files(), before);
        }
    }

    // A limit on the size of files stops the program while it writes: what was there under the
    // names of its results stays, and nothing beside it.
    void expectOldFilesKept(const std::string& arguments, int blocks,
                            const std::vector<std::string>& names) const
    {
        for (const std::string& name : names)
            put(name, "old");
        put("stdout.txt", "");
        put("stderr.txt", "");
        const auto before = files();
        const RunResult full =
            run(arguments, "trap '' XFSZ; ulimit -f " + std::to_string(blocks) + ";");
        EXPECT_EQ(full.status, 1) << full.err;
        EXPECT_NE(full.err.find("cannot write"), std::string::npos) << full.err;
        for (const std::string& name : names)
            EXPECT_EQ(content(name), "old") << name;
        EXPECT_EQ(run(arguments).status, 0);
        for (const std::string& name : names)
            EXPECT_NE(content(name), "old") << name;
        EXPECT_EQ(files(), before);
    }

    // The program's usage names all these options.
    void expectHelp(const std::vector<std::string>& options) const
    {
        const std::string name = std::filesystem::path(program_).filename();
        for (const char* option : {"--help", "-h"}) {
            const RunResult result = run(option);
            EXPECT_EQ(result.status, 0);
            EXPECT_EQ(result.err, "");
            EXPECT_EQ(result.out.find("Usage: " + name), 0u);
            for (const std::string& wanted : options)
                EXPECT_NE(result.out.find(wanted), std::string::npos) << wanted;
        }
    }

    std::ptrdiff_t files() const
    {
        return std::distance(std::filesystem::directory_iterator(directory_), {});
    }

    std::filesystem::path directory_;

private:
    std::string program_;
};

} // namespace rvn::tests
