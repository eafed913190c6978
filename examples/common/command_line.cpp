// command_line.cpp - see command_line.h. Numbers are read by std::from_chars, which takes neither
// blanks nor octal digits.
#include "command_line.h"

#include "program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <filesystem>

namespace
{

// Bounds are asked for such that NaN is outside.
template <typename Number>
Number within(const std::string& name, const std::string& text, Number least, Number most,
              bool isOpen, const std::string& wanted)
{
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size() && value <= most &&
        (isOpen ? value > least : value >= least))
        return value;
    throw UsageFailure(name + " must be " + wanted + (isOpen ? " above " : " from ") +
                       formatted("%.9g", least) + " to " + formatted("%.9g", most) + ", not '" +
                       text + "'");
}

// In lines for the right column of --help.
std::string wrapped(std::string text)
{
    constexpr std::size_t width = 60;
    for (std::size_t begin = 0; text.size() > begin + width;) {
        const std::size_t blank = text.rfind(' ', begin + width);
        text[blank] = '\n';
        begin = blank + 1;
    }
    return text;
}

} // namespace

CommandLine::CommandLine(const std::string& name, const std::string& purpose)
    : app_(std::make_unique<CLI::App>(purpose, name))
{
    app_->set_help_flag("-h,--help", "print this text");
    app_->option_defaults()->always_capture_default()->multi_option_policy(
        CLI::MultiOptionPolicy::TakeLast);
    app_->get_formatter()->column_width(30);
}

CommandLine::~CommandLine() = default;

void CommandLine::input(const std::string& name, std::string& path)
{
    app_->add_option(name, path)
        ->type_name("")
        ->required()
        ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

void CommandLine::option(const std::string& names, const std::string& kind, std::string& text,
                         const std::string& help)
{
    app_->add_option(names, text, wrapped(help))
        ->type_name(kind)
        ->check(
            [](const std::string& given) { return std::string(given.empty() ? "is empty" : ""); });
}

void CommandLine::flag(const std::string& names, bool& value, const std::string& help)
{
    app_->add_flag(names, value, wrapped(help));
}

bool CommandLine::parse(int argc, char** argv)
{
    try {
        app_->parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::fputs(app_->help().c_str(), stdout);
        return false;
    } catch (const CLI::ParseError& error) {
        throw UsageFailure(error.what() + std::string("; see --help"));
    }
    return true;
}

int wholeNumber(const std::string& name, const std::string& text, int least, int most)
{
    return within(name, text, least, most, false, "a whole number");
}

double number(const std::string& name, const std::string& text, double least, double most,
              bool isOpen)
{
    return within(name, text, least, most, isOpen, "a number");
}

double share(const std::string& name, const std::string& text)
{
    return number(name, text, 0, 1, true);
}

int choice(const std::string& name, const std::string& text, const std::vector<std::string>& words)
{
    const auto found = std::ranges::find(words, text);
    if (found == words.end())
        throw UsageFailure(name + " must be one of " + CLI::detail::join(words, ", ") + ", not '" +
                           text + "'");
    return static_cast<int>(found - words.begin());
}

std::string resultName(const std::string& given, const std::string& input, const char* ending)
{
    return given.empty() ? std::filesystem::path(input).stem().string() + ending : given;
}

void expectOtherFile(const std::string& output, const std::string& input, const std::string& words)
{
    std::error_code ignored;
    if (std::filesystem::equivalent(output, input, ignored))
        throw Failure("'" + output + "' " + words);
}
