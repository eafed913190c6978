// Tests of a built program: each runs it in a folder of its own and reads what it printed and
// wrote.
//
// Pictures are drawn by gnuplot. Most tests put a stand-in before it that keeps the script, which
// is what the program says of the picture: titles, axes, and the level of each pixel.
#pragma once

#include "pattern.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

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

    // The speed is that many things over their time, and the share that many over all.
    void expectSpeed(double unit) const
    {
        const std::string count = found("speed [^(]*\\(([0-9]+)");
        EXPECT_NEAR(number("speed +([^ ]+)") * unit * number("in ([^ ]+) ms") * 1e-3,
                    std::stod(count), 0.02 * std::stod(count));
    }
    void expectShare() const
    {
        EXPECT_NEAR(number("share ([^ )]+)"),
                    number("kept +([0-9]+)") / number("kept +[0-9]+ of ([0-9]+)"), 1e-5);
    }
};

// A command line that a program refuses, and words of what it says then.
struct Refusal {
    const char *arguments, *words;
};

// The levels in dB of a panel's pixels, in the script that draws it.
struct PanelLevels {
    static constexpr int width = 800;
    std::vector<float> levels; // rows from the bottom

    // Places from 0 to 1.
    float at(double time, double frequency) const
    {
        const auto height = static_cast<double>(levels.size() / width);
        return levels[static_cast<std::size_t>(frequency * height) * width +
                      static_cast<std::size_t>(time * width)];
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
        setGnuplot("cat >\"$0.script\"; printf 'a picture \\0\\0\\0\\0IEND\\256\\102\\140\\202'");
    }
    ~ProgramTest() override { std::filesystem::remove_all(directory_); }

    // Replaces gnuplot by a shell script; empty: the real one is called.
    void setGnuplot(const std::string& commands)
    {
        std::filesystem::create_directory(path("bin"));
        std::filesystem::remove(path("bin/gnuplot"));
        if (commands.empty())
            return;
        put("bin/gnuplot", "#!/bin/sh\n" + commands + "\n");
        std::filesystem::permissions(path("bin/gnuplot"), std::filesystem::perms::all);
    }

    // What the program told the stand-in last.
    std::string script() const { return content("bin/gnuplot.script"); }
    std::vector<PanelLevels> panels() const
    {
        const std::string text = script(), begin = "with image notitle\n";
        std::vector<PanelLevels> all;
        for (std::size_t i = 0; (i = text.find("array=(800,", i)) != std::string::npos;) {
            PanelLevels panel;
            panel.levels.resize(800 * std::stoul(text.substr(i + 11)));
            i = text.find(begin, i) + begin.size();
            std::memcpy(panel.levels.data(), &text.at(i), panel.levels.size() * sizeof(float));
            all.push_back(panel);
        }
        return all;
    }

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
        const std::string command = "cd '" + directory_.string() + "'; " + before +
                                    " PATH=\"$PWD/bin:$PATH\" '" + program_ + "' " + arguments +
                                    " >bin/stdout 2>bin/stderr";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content("bin/stdout"),
                content("bin/stderr")};
    }

    // Each of them ends in one line, with the program's name, and nothing is written.
    void expectRefusals(const std::vector<Refusal>& refusals) const
    {
        const std::string name = std::filesystem::path(program_).filename();
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
        for (const char* option : {"--help", "-h"}) {
            const RunResult result = run(option);
            EXPECT_EQ(result.status, 0);
            EXPECT_EQ(result.err, "");
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
