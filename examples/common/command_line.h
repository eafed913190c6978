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

namespace examples
{

// What an option's number may be; both ends included but for `least` when it is open.
struct Bounds {
    double least, most;
    bool isOpen = false;
};

constexpr Bounds aShare = {0, 1, true};

class CommandLine
{
public:
    CommandLine(const std::string& name, const std::string& purpose);
    ~CommandLine();

    // The file that is read; one, and it must be given.
    void input(const std::string& name, std::string& path);

    // Options, by names as in "-n,--length". Without one its variable stays as it is, and that is
    // shown as the default. A file's name is not empty. A real number may be "inf" where the upper
    // bound is infinite.
    void flag(const std::string& names, bool& value, const std::string& help);
    void whole(const std::string& names, int& value, int least, int most, const std::string& help);
    void real(const std::string& names, double& value, Bounds bounds, const std::string& help);
    void choice(const std::string& names, std::string& value,
                const std::vector<std::string>& choices, const std::string& help);
    void file(const std::string& names, std::string& path, const std::string& help);
    void text(const std::string& names, std::string& value, const std::string& kind,
              const std::string& help);

    // False: --help was asked for and is printed. Throws UsageFailure for what makes no sense.
    bool parse(int argc, char** argv);

private:
    std::unique_ptr<CLI::App> app_;
};

// The number that a whole text is; throws UsageFailure for any other, or one out of bounds.
int wholeNumber(const std::string& name, const std::string& text, int least, int most);
double numberOf(const std::string& name, const std::string& text, Bounds bounds);

// The name of a result in this directory: that of the input with another ending.
std::string resultName(const std::string& input, const std::string& ending);

// Throws Failure, with these words after the output's name, where it names the file that was read.
void expectOtherFile(const std::string& output, const std::string& input, const char* words);

} // namespace examples

#endif
