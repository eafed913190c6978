// The built library is what it claims to be: straight-line scalar kernels that do the planned
// operations, read each part of the source once and then write each slot of the result, and nothing
// else; dispatchers of one comparison and one indexed jump, to kernels that a program may replace;
// and no packed arithmetic anywhere.
//
// It reads the machine code of the file LIBRARY, so it belongs to optimised builds.

#include "command_output.h"
#include "planned_graphs.h"

#include "generator/dct4/body_graphs.h"

#include <algorithm>
#include <map>
#include <set>

namespace rvn::tests
{

namespace
{

using Names = std::set<std::string>;

struct Instruction {
    unsigned long address;
    std::string mnemonic;
    std::string operands; // AT&T order: the destination last
};

using Code = std::vector<Instruction>;

bool isPadding(const std::string& mnemonic)
{
    return mnemonic.starts_with("nop") || mnemonic == "xchg" || mnemonic == "cs" ||
           mnemonic == "data16";
}

// A function's instructions without padding, by its name.
const std::map<std::string, Code>& functions()
{
    static const std::map<std::string, Code> all = [] {
        std::map<std::string, Code> functions;
        Code* current = nullptr;
        for (const std::string& line : linesOf("objdump -d --no-show-raw-insn '" LIBRARY "'")) {
            if (line.ends_with(">:"))
                current = &functions[line.substr(18, line.size() - 20)];
            std::istringstream words(line.substr(0, line.find_first_of("#<")));
            Instruction instruction;
            char colon;
            if (current != nullptr && words >> std::hex >> instruction.address >> colon &&
                colon == ':' && words >> instruction.mnemonic && !isPadding(instruction.mnemonic)) {
                words >> instruction.operands;
                current->push_back(instruction);
            }
        }
        return functions;
    }();
    return all;
}

struct NamedCode {
    std::string name;
    const Code& code;
};

// The complex, real and Hartley kernels of either precision.
template <typename Check> void forEveryFourierKernel(const Check& check)
{
    for (const auto& kernel : everyKernel<float>())
        if (!kernel.isWalshHadamard())
            check(kernel, functions().at(kernel.name));
    for (const auto& kernel : everyKernel<double>())
        if (!kernel.isWalshHadamard())
            check(kernel, functions().at(kernel.name));
}

auto count(const Code& code, const std::vector<std::string>& starts)
{
    return std::ranges::count_if(code, [&](const Instruction& instruction) {
        return std::ranges::any_of(starts, [&](const std::string& start) {
            return instruction.mnemonic.starts_with(start);
        });
    });
}

const std::vector<std::string> additions = {"addss", "addsd", "subss", "subsd"};
const std::vector<std::string> multiplications = {"mulss", "mulsd"};

// No jump between the first and the last operation, and none that lands there.
void expectStraightLine(const std::string& name, const Code& code)
{
    const auto isArithmetic = [](const Instruction& instruction) {
        return count({instruction}, additions) + count({instruction}, multiplications) > 0;
    };
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

// Constants are addressed by %rip, the frame by %rsp, and one register each holds src and dst. What
// is read from src is what holds a part, and all of dst is written, once everything is read.
template <typename Real> void expectAccesses(const Kernel<Real>& kernel, const Code& code)
{
    std::set<long> read, written, parts, slots;
    Names sources, destinations;
    for (const auto& [address, mnemonic, operands] : code) {
        const std::size_t open = operands.find('(');
        if (open == std::string::npos)
            continue;
        const bool isWrite = operands.ends_with(')');
        const std::string base = operands.substr(open, operands.find(')') - open);
        if (base == "(%rsp" || (base == "(%rip" && !isWrite))
            continue;
        const std::size_t begin = isWrite ? operands.find(',') + 1 : 0;
        (isWrite ? destinations : sources).insert(base);
        (isWrite ? written : read)
            .insert(begin == open ? 0 : std::stol(operands.substr(begin), nullptr, 16));
        ASSERT_TRUE(isWrite || written.empty()) << kernel.name << " reads after it has written";
    }
    const long element = sizeof(Real);
    for (int part = 0; part < kernel.parts(); ++part)
        parts.insert(element * slotOf(kernel.source(), kernel.parts(), part));
    for (int slot = 0; slot < slotCount(kernel.destination(), kernel.parts()); ++slot)
        slots.insert(element * slot);
    EXPECT_EQ(read, parts) << kernel.name;
    EXPECT_EQ(written, slots) << kernel.name;
    EXPECT_TRUE(sources.size() == 1 && destinations.size() == 1 && sources != destinations)
        << kernel.name;
}

TEST(Binary, KernelsAreScalarCodeWithoutCalls)
{
    // push and pop keep registers that hold values, or take a small frame; dec may compare a flag
    // with 1; xor of a register with itself is zero.
    const Names known = {"addss",    "addsd",    "subss", "subsd", "mulss", "mulsd",
                         "cvtss2sd", "cvtsd2ss", "mov",   "movss", "movsd", "movaps",
                         "movapd",   "movd",     "movq",  "movl",  "test",  "cmp",
                         "add",      "sub",      "dec",   "push",  "pop",   "ret"};
    const Names zeroing = {"xor", "pxor", "xorps", "xorpd"};
    forEveryFourierKernel([&](const auto& kernel, const Code& code) {
        for (const auto& [address, mnemonic, operands] : code) {
            const std::size_t comma = operands.find(',');
            ASSERT_TRUE(known.contains(mnemonic) || mnemonic.starts_with('j') ||
                        (zeroing.contains(mnemonic) &&
                         operands.substr(0, comma) == operands.substr(comma + 1)))
                << kernel.name << ": " << mnemonic << " " << operands;
        }
    });
}

TEST(Binary, KernelsDoThePlannedOperationsInOneStraightLine)
{
    forEveryFourierKernel([](const auto& kernel, const Code& code) {
        const PlannedGraph& planned = graphOf(kernel);
        const auto sums = count(code, additions);
        // A doubling may be compiled to a sum.
        EXPECT_EQ(sums + count(code, multiplications),
                  planned.row.additions + planned.row.multiplications)
            << kernel.name;
        EXPECT_GE(sums, planned.row.additions) << kernel.name;
        EXPECT_LE(sums, planned.row.additions + planned.row.doublings) << kernel.name;
        expectStraightLine(kernel.name, code);
        expectAccesses(kernel, code);
    });
}

// The functions of a body of the DCT-IV in both precisions, copies for special strides included.
std::vector<NamedCode> bodiesOf(const generator::BodyPlan& plan)
{
    std::vector<NamedCode> bodies;
    for (const std::string precision : {"32f_", "64f_"}) {
        const std::string body =
            "owngDCT4_" + precision + nameOf(plan.kind) + "_" + std::to_string(plan.size);
        for (const auto& [name, code] : functions())
            if (name == body || name.starts_with(body + "."))
                bodies.push_back({name, code});
    }
    EXPECT_GE(bodies.size(), 2u) << nameOf(plan.kind) << plan.size;
    return bodies;
}

TEST(Binary, BodiesDoTheOperationsOfTheirRowInTheElementType)
{
    for (const generator::BodyPlan& plan : generator::bodyPlans)
        for (const auto& [name, code] : bodiesOf(plan)) {
            const std::string type = name.starts_with("owngDCT4_32f") ? "ss" : "sd";
            EXPECT_EQ(count(code, {"mul" + type}), plan.multiplications) << name;
            EXPECT_EQ(count(code, {"add" + type}), plan.additions) << name;
            EXPECT_EQ(count(code, {"sub" + type}), plan.subtractions) << name;
            EXPECT_EQ(count(code, additions) + count(code, multiplications),
                      plan.multiplications + plan.additions + plan.subtractions)
                << name;
            EXPECT_EQ(count(code, {"v", "cvt", "call", "div", "sqrt"}), 0) << name;
        }
}

// Nothing in the file but what is exported, the engine of the DCT-IV and what the toolchain adds,
// and no packed arithmetic anywhere.
TEST(Binary, TheFileHoldsScalarFunctionsOfTheLibraryOnly)
{
    const Names startUp = {"_init",
                           "_fini",
                           "deregister_tm_clones",
                           "register_tm_clones",
                           "__do_global_dtors_aux",
                           "frame_dummy"};
    const std::vector<std::string> ours = {"rvng", "owngDCT4_", "EnvList_", "divisorsIntNonTriv",
                                           "_ZN"};
    std::vector<std::string> packed = {"v"};
    for (const std::string operation : {"add", "sub", "mul", "div", "sqrt", "hadd", "hsub"})
        packed.insert(packed.end(), {operation + "ps", operation + "pd"});
    for (const auto& [name, code] : functions()) {
        EXPECT_TRUE(name.find("@plt") != name.npos || startUp.contains(name) ||
                    count({{0, name, ""}}, ours) > 0)
            << name;
        EXPECT_EQ(count(code, packed), 0) << name;
    }
}

// Loops around straight bodies from order 8 up, but scalar like the rest: half of the additions are
// subtractions at every order that is one straight line.
template <typename Real> void expectWalshHadamard(int order)
{
    const auto& kernel = kernelOf<Real>(Transform::WalshHadamard, order);
    const Code& code = functions().at(kernel.name);
    EXPECT_EQ(count(code, {"cvt"}), 0) << kernel.name << " converts";
    if (order > 7) {
        EXPECT_LE(count(code, {"call"}), 2) << kernel.name << " calls more than its allocator";
        return;
    }
    const int half = order << (order - 1);
    EXPECT_EQ(count(code, {"adds"}), half) << kernel.name;
    EXPECT_EQ(count(code, {"subs"}), half) << kernel.name;
    EXPECT_EQ(count(code, multiplications), 1 << order) << kernel.name;
    EXPECT_EQ(count(code, {"call"}), 0) << kernel.name;
    expectStraightLine(kernel.name, code);
    expectAccesses(kernel, code);
}

TEST(Binary, WalshHadamardKernelsAreScalarAndDoTheirButterflies)
{
    for (int order = 1; order <= 13; ++order) {
        expectWalshHadamard<float>(order);
        expectWalshHadamard<double>(order);
    }
}

// Through tables of addresses that the dynamic linker fills in by name, so that a program that
// defines a kernel itself replaces it.
TEST(Binary, DispatchersAreOneComparisonAndOneIndexedJumpToReplaceableKernels)
{
    Names dispatchers, kernels, named;
    const auto add = [&](const auto& all) {
        for (const auto& kernel : all) {
            kernels.insert(kernel.name);
            std::string name = kernel.name;
            const std::string size = "_" + std::to_string(kernel.size) + "_";
            dispatchers.insert(name.replace(name.find(size), size.size(), "_"));
        }
    };
    add(everyKernel<float>());
    add(everyKernel<double>());
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
    for (const std::string& line : linesOf("readelf -rW '" LIBRARY "'")) {
        std::istringstream words(line);
        std::string offset, info, type, value, name;
        if (words >> offset >> info >> type >> value >> name && type == "R_X86_64_64")
            named.insert(name);
    }
    EXPECT_EQ(named, kernels);
}

} // namespace

} // namespace rvn::tests
