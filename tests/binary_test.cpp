// The built library is what it claims to be: straight-line scalar kernels that do the planned
// operations and nothing else, dispatchers of one comparison and one indexed jump, an engine that
// hides its parts, and exports that are what the header declares.
//
// It reads the machine code of the file, so it belongs to optimised builds.
// LIBRARY, HEADER and PREPROCESSOR are paths; OBJECT_LIST names a file listing the object files.

#include "command_output.h"
#include "kernels.h"

#include "dct4/plans.h"
#include "dft_complex/plans.h"
#include "dft_real/plans.h"
#include "hartley/plans.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace rvn::tests
{

namespace
{

constexpr int stackLimit = 8192;
constexpr int redZone = 128; // below the stack pointer, free for functions that call none

struct Instruction {
    unsigned long address;
    std::string mnemonic;
    std::string operands; // AT&T order: the destination last
};

using Code = std::vector<Instruction>;

// A function's instructions without padding, by its name.
const std::map<std::string, Code>& functions()
{
    static const std::map<std::string, Code> all = [] {
        const std::regex form(R"( *([0-9a-f]+):\t(\w+)( +([^#<]*[^#< ]))?.*)");
        std::map<std::string, Code> functions;
        Code* current = nullptr;
        std::smatch match;
        for (const std::string& line : linesOf("objdump -d --no-show-raw-insn '" LIBRARY "'")) {
            if (line.ends_with(">:"))
                current = &functions[line.substr(18, line.size() - 20)];
            else if (std::regex_match(line, match, form) && match[2] != "nop" &&
                     match[2] != "nopw" && match[2] != "nopl" && match[2] != "xchg" &&
                     match[2] != "cs" && match[2] != "data16")
                current->push_back({std::stoul(match[1], nullptr, 16), match[2], match[4]});
        }
        return functions;
    }();
    return all;
}

// What a plan says that a kernel does, products by S included. A doubling may be compiled to a sum.
struct Operations {
    int additions;
    int multiplications;
    int doublings;
};

Operations operationsOf(const Kernel<double>& kernel)
{
    const int row = kernel.length() - 2;
    const auto counts = [](const auto& plan, int products, int doublings) {
        return Operations{plan.additions, plan.multiplications + products, doublings};
    };
    if (kernel.isComplex())
        return counts(dft_complex::complexPlans()[row], 2 * kernel.length(), 0);
    if (kernel.isForward())
        return counts(dft_real::forwardPlans()[row], 0, 0);
    if (kernel.isInverse())
        return counts(dft_real::inversePlans()[row], 0, dft_real::inversePlans()[row].doublings);
    return counts(hartley::hartleyPlans()[row], 0, 0);
}

struct NamedCode {
    std::string name;
    const Code& code;
    Operations planned;
};

// The complex, real and Hartley kernels. Both precisions of a row do the same operations.
std::vector<NamedCode> everyKernelsCode()
{
    std::vector<NamedCode> kernels;
    for (std::size_t row = 0; row < everyKernel<double>().size(); ++row) {
        const auto& wide = everyKernel<double>()[row];
        if (!wide.isWalshHadamard())
            for (const std::string& name : {everyKernel<float>()[row].name, wide.name})
                kernels.push_back({name, functions().at(name), operationsOf(wide)});
    }
    return kernels;
}

bool isAddition(const Instruction& instruction)
{
    static const std::set<std::string> additions = {"addss", "addsd", "subss", "subsd"};
    return additions.contains(instruction.mnemonic);
}

bool isMultiplication(const Instruction& instruction)
{
    return instruction.mnemonic == "mulss" || instruction.mnemonic == "mulsd";
}

bool isArithmetic(const Instruction& instruction)
{
    return isAddition(instruction) || isMultiplication(instruction);
}

// No jump between the first and the last operation, and none that lands there.
void expectStraightLine(const std::string& name, const Code& code)
{
    const auto first = std::ranges::find_if(code, isArithmetic);
    const auto last = std::find_if(code.rbegin(), code.rend(), isArithmetic) + 1;
    for (auto i = code.begin(); i != code.end(); ++i) {
        if (!i->mnemonic.starts_with('j'))
            continue;
        const unsigned long target = std::stoul(i->operands, nullptr, 16);
        EXPECT_TRUE(i < first || last.base() < i) << name;
        EXPECT_TRUE(target <= first->address || last->address < target) << name;
    }
}

// Constants are addressed by %rip, the frame by %rsp, and one register each holds src and dst.
void expectReadsBeforeWrites(const std::string& name, const Code& code)
{
    const std::regex address(R"(.*\(%(\w+)\)(,.*)?)");
    std::smatch match;
    std::set<std::string> read, written;
    for (const Instruction& instruction : code) {
        if (instruction.operands.find('(') == std::string::npos)
            continue;
        ASSERT_TRUE(std::regex_match(instruction.operands, match, address)) << name;
        const bool isWrite = !match[2].matched;
        if (match[1] == "rsp" || (match[1] == "rip" && !isWrite))
            continue;
        (isWrite ? written : read).insert(match[1]);
        ASSERT_TRUE(isWrite || written.empty()) << name << " reads after it has written";
    }
    EXPECT_TRUE(read.size() == 1 && written.size() == 1 && read != written) << name;
}

bool isPacked(const Instruction& instruction)
{
    static const std::regex packed(
        "v?(add|sub|mul|div|sqrt|hadd|hsub|addsub|fn?m(add|sub).*)p[sd].*");
    return std::regex_match(instruction.mnemonic, packed);
}

TEST(Binary, KernelsAreScalarCodeWithoutCalls)
{
    // push and pop keep registers that hold values, or take a small frame; dec may compare a flag
    // with 1.
    const std::regex known(
        "((add|sub|mul)s[sd]|cvt(ss2sd|sd2ss)|mov(ss|sd|aps|apd|d|q|l)?"
        "|test|cmp|j[a-z]+|add|sub|dec|push|pop|ret) .*|(xor|pxor|xorp[sd]) (%\\w+),\\6");
    for (const auto& [name, code, planned] : everyKernelsCode())
        for (const auto& [address, mnemonic, operands] : code)
            ASSERT_TRUE(std::regex_match(mnemonic + " " + operands, known)) << name << mnemonic;
}

TEST(Binary, KernelsDoThePlannedOperationsInOneStraightLine)
{
    for (const auto& [name, code, planned] : everyKernelsCode()) {
        const auto additions = std::ranges::count_if(code, isAddition);
        const auto multiplications = std::ranges::count_if(code, isMultiplication);
        EXPECT_EQ(additions + multiplications, planned.additions + planned.multiplications) << name;
        EXPECT_GE(additions, planned.additions) << name;
        EXPECT_LE(additions, planned.additions + planned.doublings) << name;
        expectStraightLine(name, code);
    }
}

// The functions of a body of the DCT-IV in both precisions, copies for special strides included.
std::vector<NamedCode> bodiesOf(const std::string& body)
{
    const std::regex form("owngDCT4_(32|64)f_" + body + "([^0-9].*)?");
    std::vector<NamedCode> bodies;
    for (const auto& [name, code] : functions())
        if (std::regex_match(name, form))
            bodies.push_back({name, code, {}});
    EXPECT_GE(bodies.size(), 2u) << body;
    return bodies;
}

std::string nameOfBody(const dct4::BodyPlan& plan)
{
    static const std::string kinds[] = {"direct_", "odd_", "topRow_", "innerRow_"};
    return kinds[static_cast<int>(plan.kind)] + std::to_string(plan.size);
}

TEST(Binary, BodiesDoTheOperationsOfTheirRowInTheElementType)
{
    for (const dct4::BodyPlan& plan : dct4::bodyPlans)
        for (const auto& [name, code, unused] : bodiesOf(nameOfBody(plan))) {
            const std::string type = name.starts_with("owngDCT4_32f") ? "ss" : "sd";
            const auto count = [&code](const std::string& form) {
                return std::ranges::count_if(code, [&](const Instruction& instruction) {
                    return std::regex_match(instruction.mnemonic, std::regex(form));
                });
            };
            EXPECT_EQ(count("mul" + type), plan.multiplications) << name;
            EXPECT_EQ(count("add" + type), plan.additions) << name;
            EXPECT_EQ(count("sub" + type), plan.subtractions) << name;
            EXPECT_EQ(count("(add|sub|mul|div|sqrt)[sp][sd]"),
                      plan.multiplications + plan.additions + plan.subtractions)
                << name;
            EXPECT_EQ(count("v.*|cvt.*|call.*"), 0) << name;
        }
}

// Nothing in the file but what is exported, the engine of the DCT-IV and what the toolchain adds,
// and no packed arithmetic anywhere.
TEST(Binary, TheFileHoldsScalarFunctionsOfTheLibraryOnly)
{
    const std::set<std::string> startUp = {"_init",
                                           "_fini",
                                           "deregister_tm_clones",
                                           "register_tm_clones",
                                           "__do_global_dtors_aux",
                                           "frame_dummy"};
    const std::regex ours("(rvng|owngDCT4_|EnvList_|divisorsIntNonTriv|_ZN).*");
    for (const auto& [name, code] : functions()) {
        const bool isLinkage = name.find("@plt") != std::string::npos;
        EXPECT_TRUE(std::regex_match(name, ours) || startUp.contains(name) || isLinkage) << name;
        for (const Instruction& instruction : code)
            EXPECT_FALSE(isPacked(instruction) || instruction.mnemonic.starts_with('v'))
                << name << ": " << instruction.mnemonic;
    }
}

// Loops around straight bodies from order 8 up, but scalar like the rest: half of the additions are
// subtractions at every order that is one straight line.
TEST(Binary, WalshHadamardKernelsAreScalarAndDoTheirButterflies)
{
    const auto check = [](const std::string& name, int order) {
        const Code& code = functions().at(name);
        const auto count = [&code](const std::string& start) {
            return std::ranges::count_if(code, [&start](const Instruction& instruction) {
                return instruction.mnemonic.starts_with(start);
            });
        };
        EXPECT_EQ(count("cvt"), 0) << name << " converts";
        if (order > 7) {
            EXPECT_LE(count("call"), 2) << name << " calls more than rvnMalloc and rvnFree";
            return;
        }
        const int half = order << (order - 1);
        EXPECT_EQ(count("adds"), half) << name;
        EXPECT_EQ(count("subs"), half) << name;
        EXPECT_EQ(std::ranges::count_if(code, isMultiplication), 1 << order) << name;
        EXPECT_EQ(count("call"), 0) << name;
        expectStraightLine(name, code);
        expectReadsBeforeWrites(name, code);
    };
    for (int order = 1; order <= 13; ++order) {
        check(kernelOf<float>(Transform::WalshHadamard, order).name, order);
        check(kernelOf<double>(Transform::WalshHadamard, order).name, order);
    }
}

TEST(Binary, FramesStayBelow8KiB)
{
    // 128 is written as -128 with the opposite sign, since that fits a byte.
    const std::regex frame(R"(\$0x([0-9a-f]+),%rsp)");
    std::smatch match;
    for (const auto& [name, code, planned] : everyKernelsCode())
        for (const Instruction& instruction : code)
            if (std::regex_match(instruction.operands, match, frame)) {
                const auto bytes = static_cast<long>(std::stoul(match[1], nullptr, 16));
                EXPECT_LT(std::abs(bytes) + redZone, stackLimit) << name;
            }

    // The compiler's own account beside every object file.
    const std::regex row(R"(.*\b((?:rvng|owng)\w+)\(.*\t(\d+)\t(\w+))");
    std::set<std::string> accounted;
    std::ifstream objects(OBJECT_LIST);
    for (std::string object; std::getline(objects, object);) {
        std::ifstream usage(object.substr(0, object.rfind('.')) + ".su");
        for (std::string line; std::getline(usage, line);)
            if (std::regex_match(line, match, row)) {
                accounted.insert(match[1]);
                EXPECT_LT(std::stoi(match[2]) + redZone, stackLimit) << line;
                EXPECT_EQ(match[3], "static") << line;
            }
    }
    for (const auto& kernel : everyKernel<float>())
        EXPECT_TRUE(accounted.contains(kernel.name)) << kernel.name;
    for (const auto& kernel : everyKernel<double>())
        EXPECT_TRUE(accounted.contains(kernel.name)) << kernel.name;
    for (const dct4::BodyPlan& plan : dct4::bodyPlans)
        for (const std::string precision : {"32f_", "64f_"})
            EXPECT_TRUE(accounted.contains("owngDCT4_" + precision + nameOfBody(plan)))
                << nameOfBody(plan);
}

TEST(Binary, DispatchersAreOneComparisonAndOneIndexedJump)
{
    std::set<std::string> dispatchers = {"rvngWHT_32f", "rvngWHT_64f"};
    for (const NamedCode& kernel : everyKernelsCode())
        dispatchers.insert(std::regex_replace(kernel.name, std::regex("_[0-9]+_"), "_"));
    EXPECT_EQ(dispatchers.size(), 4u + 12 + 2 + 2);
    for (const std::string& name : dispatchers) {
        std::string control;
        for (const auto& [address, mnemonic, operands] : functions().at(name))
            if (mnemonic == "cmp" || mnemonic == "test" || mnemonic == "call")
                control += mnemonic + " ";
            else if (mnemonic.starts_with('j'))
                control += operands.starts_with('*') ? "indirect " : mnemonic + " ";
            else if (operands.find(",8),") != std::string::npos)
                control += "table ";
        EXPECT_EQ(control, "cmp ja table indirect ") << name;
    }
}

TEST(Binary, ExportsAreExactlyTheHeadersDeclarations)
{
    std::set<std::string> declared;
    const std::regex declaration(R"(\b(rvng\w+)\()");
    for (const std::string& line : linesOf("'" PREPROCESSOR "' -E -P '" HEADER "'"))
        for (std::sregex_iterator name(line.begin(), line.end(), declaration), end; name != end;
             ++name)
            declared.insert((*name)[1]);
    std::set<std::string> exported;
    for (const std::string& line : linesOf("nm -D --defined-only '" LIBRARY "'")) {
        EXPECT_NE(line.find(" T "), line.npos) << line;
        exported.insert(line.substr(line.rfind(' ') + 1));
    }
    EXPECT_EQ(exported, declared);
    EXPECT_EQ(exported.size(), 4u * 64 + 12 * 64 + 2 * 64 + 2 * 14 + 2 + 1 + 2 * 5);
}

TEST(Binary, TheEngineOfTheDct4IsHiddenUnderItsDocumentedNames)
{
    std::set<std::string> expected = {
        "EnvList___init__",     "EnvList___del__",   "EnvList_add",     "EnvList_add_mem",
        "EnvList_freeChildren", "EnvList_get",       "rvngArenaMalloc", "rvngArenaFree",
        "rvngAlignSize32Bytes", "divisorsIntNonTriv"};
    const std::map<std::string, std::string> operations = {
        {"env1", "plan mem compute"}, {"env2", "plan compute"}, {"env3", "plan mem compute"},
        {"env4", "plan mem"},         {"env6", "plan compute"}, {"env7", "plan mem compute"},
        {"envlambda", "at"},          {"envfCompose", "at"}};
    for (const std::string precision : {"32f", "64f"}) {
        expected.insert({"rvngCosPi_" + precision, "rvngSinPi_" + precision});
        for (const auto& [object, names] : operations) {
            std::istringstream all("__init__ __del__ " + names);
            for (std::string operation; all >> operation;)
                expected.insert("owngDCT4_" + precision + "_" + object + "_" + operation);
        }
    }
    std::set<std::string> hidden;
    for (const std::string& line : linesOf("nm '" LIBRARY "'"))
        if (line.find(" t ") != line.npos)
            hidden.insert(line.substr(line.rfind(' ') + 1));
    for (const std::string& name : expected)
        EXPECT_TRUE(hidden.contains(name)) << name;
}

} // namespace

} // namespace rvn::tests
