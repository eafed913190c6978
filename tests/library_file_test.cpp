// Both library files need nothing beyond the C library, run nothing when they are loaded, and keep
// no state: once loaded, nothing of them is writable but a handle and a flag of the toolchain's
// start-up code. LIBRARY and CORE_LIBRARY are their paths.

#include "command_output.h"
#include "pattern.h"

#include <set>

namespace rvn::tests
{

namespace
{

using Names = std::set<std::string>;

struct File {
    std::string path;
    Names dynamic; // entries that name something
    Names imports; // beside the weak ones of the toolchain
};

void PrintTo(const File& file, std::ostream* out)
{
    *out << file.path.substr(file.path.rfind('/') + 1);
}

const File everyFile[] = {
    {LIBRARY,
     {"Shared library: [librvncore.so]", "Shared library: [libm.so.6]",
      "Library soname: [librvngenmx.so.6.1]", "Library runpath: [$ORIGIN]"},
     {"cos", "cosf", "rvnFree", "rvnMalloc", "sin", "sinf"}},
    {CORE_LIBRARY,
     {"Shared library: [libc.so.6]", "Library soname: [librvncore.so]"},
     {"free", "posix_memalign"}},
};

// The first group of each line that has the form.
Names matches(const std::string& command, const std::string& form)
{
    Names found;
    const Pattern pattern(form);
    for (const std::string& line : linesOf(command))
        if (const auto groups = pattern.match(line); !groups.empty())
            found.insert(groups[1]);
    return found;
}

class LibraryFile : public ::testing::TestWithParam<File>
{
protected:
    static std::string with(const std::string& tool) { return tool + " '" + GetParam().path + "'"; }
};

TEST_P(LibraryFile, NeedsNothingElse)
{
    EXPECT_EQ(matches(with("readelf -dW"), R"(.*\) +([A-Z][A-Za-z ]*: \[.*\]))"),
              GetParam().dynamic);
    EXPECT_EQ(matches(with("nm -D --undefined-only"), R"( +U (\w+).*)"), GetParam().imports);
    EXPECT_EQ(matches(with("nm -D --undefined-only"), R"( +w (\w+).*)"),
              (Names{"_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable", "__cxa_finalize",
                     "__gmon_start__"}));
}

// One entry each of start-up and exit code, and what stands around them, is the toolchain's.
TEST_P(LibraryFile, RunsNothingWhenItIsLoaded)
{
    EXPECT_EQ(
        matches(with("readelf -SW"), R"(.*\] (\.(init|fini|preinit)_array +\w+ +\w+ \w+ 0+8) .*)")
            .size(),
        2u);
    EXPECT_EQ(matches(with("readelf -SW"), R"(.*\] (\.(init|fini|preinit)_array) .*)").size(), 2u);
    EXPECT_EQ(matches(with("objdump -d -j .init -j .fini"), " +\\w+:\t[0-9a-f ]+\t((call|jmp).*)"),
              (Names{"call   *%rax"}));
}

TEST_P(LibraryFile, IsReadOnlyOnceItIsLoaded)
{
    EXPECT_EQ(matches(with("readelf -dW"), R"(.*\(FLAGS\) +(.*))"), (Names{"BIND_NOW"}));
    EXPECT_EQ(matches(with("readelf -dW"), R"(.*(TEXTREL).*)"), Names{});

    const Pattern segment(R"( +(\w+) +\w+ 0x(\w+) \w+ \w+ 0x(\w+) ([RWE ]{3}) .*)");
    Names segments;
    unsigned long readOnlyBegin = 0, readOnlyEnd = 0;
    for (const std::string& line : linesOf(with("readelf -lW"))) {
        const auto match = segment.match(line);
        if (match.empty())
            continue;
        segments.insert(match[1]);
        EXPECT_FALSE(match[4] == "RWE" || match[4] == " WE") << line;
        if (match[1] == "GNU_RELRO") {
            readOnlyBegin = std::stoul(match[2], nullptr, 16);
            readOnlyEnd = readOnlyBegin + std::stoul(match[3], nullptr, 16);
        }
    }
    EXPECT_TRUE(segments.contains("GNU_STACK"));
    EXPECT_FALSE(segments.contains("TLS"));

    const Pattern section(R"(.*\] (\S+) +\w+ +(\w+) \w+ (\w+) \w+ +(\w+) .*)");
    Names writable;
    unsigned long bytes = 0;
    for (const std::string& line : linesOf(with("readelf -SW"))) {
        const auto match = section.match(line);
        if (match.empty() || match[4].find('W') == line.npos)
            continue;
        const auto begin = std::stoul(match[2], nullptr, 16);
        const auto size = std::stoul(match[3], nullptr, 16);
        if (readOnlyBegin <= begin && begin + size <= readOnlyEnd)
            continue;
        writable.insert(match[1]);
        bytes += size;
    }
    EXPECT_EQ(writable, (Names{".bss", ".data"}));
    EXPECT_EQ(bytes, 16u);
    EXPECT_EQ(matches(with("objdump -t"), ".* \\.bss\t.* (\\S+)"), (Names{"completed.0"}));
    EXPECT_EQ(matches(with("objdump -t"), ".* \\.data\t.* (\\S+)"),
              (Names{"__dso_handle", "__TMC_END__"}));
}

INSTANTIATE_TEST_SUITE_P(, LibraryFile, ::testing::ValuesIn(everyFile),
                         [](const auto& info) { return info.index == 0 ? "rvngenmx" : "rvncore"; });

} // namespace

} // namespace rvn::tests
