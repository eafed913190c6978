// command_line.cpp - see command_line.h. Numbers are read by std::from_chars, which takes neither
// blanks nor octal digits, and bounds are asked for such that NaN is outside.
#include "command_line.h"

#include "program.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <filesystem>

namespace examples
{
namespace
{

template <typename Number> bool parsed(const std::string& text, Number& value)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

[[noreturn]] void refuse(const std::string& name, const std::string& wanted,
                         const std::string& text)
{
    throw UsageFailure(name + " must be " + wanted + ", not '" + text + "'");
}

std::string longName(const std::string& names)
{
    return names.substr(names.find("--"));
}

} // namespace

int wholeNumber(const std::string& name, const std::string& text, int least, int most)
{
    int value = 0;
    if (!parsed(text, value) || value < least || value > most)
        refuse(name,
               "a whole number from " + std::to_string(least) + " to " + std::to_string(most),
               text);
    return value;
}

double numberOf(const std::string& name, const std::string& text, Bounds bounds)
{
    double value = 0;
    const bool isAbove = parsed(text, value) &&
                         (bounds.isOpen ? value > bounds.least : value >= bounds.least);
    if (isAbove && value <= bounds.most && (std::isfinite(value) || text == "inf"))
        return value;
    const std::string least = formatted(bounds.isOpen ? "above %g" : "from %g", bounds.least);
    refuse(name,
           "a number " + least +
               (std::isfinite(bounds.most) ? formatted(" to %g", bounds.most) : ""),
           text);
}

CommandLine::CommandLine(const std::string& name, const std::string& purpose)
    : app_(std::make_unique<CLI::App>(purpose, name))
{
    app_->set_help_flag("-h,--help", "print this text");
    app_->option_defaults()->always_capture_default()->multi_option_policy(
        CLI::MultiOptionPolicy::TakeLast);
    app_->get_formatter()->column_width(26);
}

CommandLine::~CommandLine() = default;

void CommandLine::input(const std::string& name, std::string& path)
{
    app_->add_option(name, path)->type_name("")->capture_default_str();
}

void CommandLine::flag(const std::string& names, bool& value, const std::string& help)
{
    app_->add_flag(names, value, help);
}

void CommandLine::text(const std::string& names, std::string& value, const std::string& kind,
                       const std::string& help)
{
    app_->add_option(names, value, help)->type_name(kind);
}

void CommandLine::whole(const std::string& names, int& value, int least, int most,
                        const std::string& help)
{
    const auto set = [=, &value](const std::string& text) {
        value = wholeNumber(longName(names), text, least, most);
    };
    app_->add_option_function<std::string>(names, set, help)
        ->type_name("N")
        ->default_str(std::to_string(value));
}

void CommandLine::real(const std::string& names, double& value, Bounds bounds,
                       const std::string& help)
{
    const auto set = [=, &value](const std::string& text) {
        value = numberOf(longName(names), text, bounds);
    };
    app_->add_option_function<std::string>(names, set, help)
        ->type_name("X")
        ->default_str(formatted("%g", value));
}

void CommandLine::choice(const std::string& names, std::string& value,
                         const std::vector<std::string>& choices, const std::string& help)
{
    const auto set = [=, &value](const std::string& text) {
        if (std::ranges::find(choices, text) == choices.end())
            refuse(longName(names), CLI::detail::join(choices, ", "), text);
        value = text;
    };
    app_->add_option_function<std::string>(names, set, help)
        ->type_name(CLI::detail::join(choices, "|"))
        ->default_str(value);
}

void CommandLine::file(const std::string& names, std::string& path, const std::string& help)
{
    const auto set = [=, &path](const std::string& text) {
        if (text.empty())
            throw UsageFailure("the file name of " + longName(names) + " is empty");
        path = text;
    };
    app_->add_option_function<std::string>(names, set, help)->type_name("FILE");
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

std::string resultName(const std::string& input, const std::string& ending)
{
    return std::filesystem::path(input).stem().string() + ending;
}

void expectOtherFile(const std::string& output, const std::string& input, const char* words)
{
    std::error_code ignored;
    if (std::filesystem::equivalent(output, input, ignored))
        throw Failure("'" + output + "' " + words);
}

} // namespace examples
