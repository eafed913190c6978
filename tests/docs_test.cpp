// The tables of the documentation say what the library does: slots of the packed layouts, worked
// rows, scale factors and the numbers of flags and statuses. DOCS is their folder.

#include "reference.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <sstream>

namespace rvn::tests
{

namespace
{

using Cells = std::vector<std::string>;

// The rows of a page's tables, their cells without blanks and quotes.
std::vector<Cells> rowsOf(const std::string& page)
{
    std::vector<Cells> rows;
    std::ifstream file(DOCS "/" + page);
    for (std::string line; std::getline(file, line);) {
        std::erase_if(line, [](char c) { return c == ' ' || c == '`'; });
        std::istringstream text(line);
        if (text.get() != '|')
            continue;
        rows.emplace_back();
        for (std::string cell; std::getline(text, cell, '|');)
            rows.back().push_back(cell);
    }
    return rows;
}

const std::map<std::string, Transform> forwardOf = {
    {"CCS", Transform::ToCCS}, {"Pack", Transform::ToPack}, {"Perm", Transform::ToPerm}};

// The value of "R(3)", "I(3)" or "0" in a half spectrum given as parts.
double valueOf(const std::string& cell, const std::vector<double>& parts)
{
    const int k = cell.size() > 2 ? std::stoi(cell.substr(2)) : 0;
    return cell == "0" ? 0 : parts.at(cell[0] == 'I' ? 2 * k : std::max(0, 2 * k - 1));
}

TEST(Docs, EverySlotIsWhereItsTableShowsIt)
{
    int rows = 0;
    for (const Cells& row : rowsOf("layouts.md")) {
        const std::size_t comma = row[0].find(',');
        if (!std::isdigit(row[0].back()) || !forwardOf.contains(row[0].substr(0, comma)))
            continue;
        const auto& kernel =
            kernelOf<double>(forwardOf.at(row[0].substr(0, comma)), row[0].back() - '0');
        const auto x = randomParts<double>(kernel.length(), 37);
        std::vector<double> parts;
        for (const Wide& part : product(matrixOf(kernel), x))
            parts.push_back(static_cast<double>(part.real()));
        const auto X = resultOf(kernel, x.data(), RvnScaleNone);
        ASSERT_EQ(std::ranges::count_if(row, [](const auto& cell) { return !cell.empty(); }) - 1,
                  std::ssize(X))
            << row[0];
        for (std::size_t slot = 0; slot < X.size(); ++slot)
            EXPECT_NEAR(X[slot], valueOf(row[slot + 1], parts), 1e-14)
                << row[0] << ", slot " << slot;
        ++rows;
    }
    EXPECT_EQ(rows, 6);
}

TEST(Docs, TheWorkedRowsAreWhatTheCallsGive)
{
    int rows = 0;
    for (const Cells& row : rowsOf("layouts.md")) {
        const std::string name = row[0].substr(0, row[0].find('('));
        const auto kernel = std::ranges::find(everyKernel<double>(), name, &Kernel<double>::name);
        if (kernel == everyKernel<double>().end())
            continue;
        const std::vector<double> x =
            kernel->length() == 4 ? std::vector<double>{1, 2, 3, 4} : std::vector<double>{1, 2, 4};
        std::istringstream values(row[1]);
        for (const double value : resultOf(*kernel, x.data(), RvnScaleNone)) {
            std::string expected;
            EXPECT_TRUE(std::getline(values, expected, ',')) << name;
            EXPECT_NEAR(value, std::stod(expected), 5e-4) << name;
        }
        ++rows;
    }
    EXPECT_EQ(rows, 5);
}

TEST(Docs, FlagsStatusesAndFactorsHaveTheirValues)
{
    const std::map<std::string, int> statuses = {{"RvnStatusBadMode,-5", RvnStatusBadMode},
                                                 {"RvnStatusSizeError,-6", RvnStatusSizeError},
                                                 {"RvnStatusNullPointer,-8", RvnStatusNullPointer},
                                                 {"RvnStatusFlagError,-16", RvnStatusFlagError}};
    const Transform families[] = {Transform::Forward, Transform::Inverse, Transform::Hartley};
    int found = 0;
    for (const Cells& row : rowsOf("calls.md")) {
        if (const auto status = statuses.find(row.back()); status != statuses.end()) {
            EXPECT_EQ(std::stoi(row.back().substr(row.back().find(',') + 1)), status->second);
            ++found;
        }
        for (const RvnScaleFlag flag : everyFlag)
            for (int family = 0; inWords(flag) == row[0] && family < 3; ++family) {
                EXPECT_EQ(std::stoi(row[1]), flag) << row[0];
                const auto X = transformed(kernelOf<double>(families[family], 5),
                                           unitPart<double>(family < 2 ? 10 : 5, 0), flag);
                const std::string& cell = row[2 + family];
                EXPECT_EQ(X[0], cell == "1"     ? 1
                                : cell == "1/N" ? 1.0 / 5
                                                : 1 / std::sqrt(5.0))
                    << row[0];
                ++found;
            }
    }
    EXPECT_EQ(found, 4 + 12);
}

} // namespace

} // namespace rvn::tests
