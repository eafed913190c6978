// Extended regular expressions, by the C library: those of C++ take seconds to compile in every
// file. No character class but those in brackets matches the end of a line, and neither does the
// dot.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include <regex.h>

namespace rvn::tests
{

class Pattern
{
public:
    explicit Pattern(const std::string& text)
    {
        if (regcomp(&form_, text.c_str(), REG_EXTENDED | REG_NEWLINE) != 0)
            throw std::invalid_argument(text);
    }
    ~Pattern() { regfree(&form_); }

    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;

    // The leftmost match, then what its groups match; nothing if there is none.
    std::vector<std::string> find(const std::string& text) const
    {
        std::vector<regmatch_t> places(form_.re_nsub + 1);
        if (regexec(&form_, text.c_str(), places.size(), places.data(), 0) != 0)
            return {};
        std::vector<std::string> groups;
        for (const auto& [begin, end] : places)
            groups.push_back(begin < 0 ? "" : text.substr(begin, end - begin));
        return groups;
    }

    // The same, if the match is the whole text.
    std::vector<std::string> match(const std::string& text) const
    {
        std::vector<std::string> groups = find(text);
        if (!groups.empty() && groups[0] != text)
            groups.clear();
        return groups;
    }

    bool matches(const std::string& text) const { return !match(text).empty(); }

private:
    regex_t form_;
};

} // namespace rvn::tests
