// command_line.h - the command line of an example, read by CLI11.
//
// CLI11 stands behind this file alone: its header takes longer to compile than a whole example.
#ifndef EXAMPLES_COMMAND_LINE_H
#define EXAMPLES_COMMAND_LINE_H

#include <memory>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

class CommandLine
{
public:
    CommandLine(const std::string& name, const std::string& purpose);
    ~CommandLine();

    // The file that is read; one, and it must be given.
    void input(const std::string& name, std::string& path);

    // Options, by names as in "-n,--length". The text is the default, and what is given is not
    // empty.
    void option(const std::string& names, const std::string& kind, std::string& text,
                const std::string& help);
    void flag(const std::string& names, bool& value, const std::string& help);

    // False: --help was asked for and is printed. Throws UsageFailure for what makes no sense.
    bool parse(int argc, char** argv);

private:
    std::unique_ptr<CLI::App> app_;
};

// What the text of an option stands for; throw UsageFailure, with its name, for anything else: a
// whole number from least to most; a finite number from least or, where that is open, above it, to
// most; a share above 0 and up to 1; the place in a list of words.
int wholeNumber(const std::string& name, const std::string& text, int least, int most);
double number(const std::string& name, const std::string& text, double least, double most,
              bool isOpen = false);
double share(const std::string& name, const std::string& text);
int choice(const std::string& name, const std::string& text, const std::vector<std::string>& words);

// The name that was given or else, in this directory, that of the input with another ending.
std::string resultName(const std::string& given, const std::string& input, const char* ending);

// Throws Failure, with these words after the output's name, where it names the file that was read.
void expectOtherFile(const std::string& output, const std::string& input, const std::string& words);

#endif
