// A function of the C++ header with the length in its type is the jump to the kernel of that length
// and nothing else. OBJECT_FILE is the path of the compiled cpp_face_code.cpp.

#include "command_output.h"
#include "pattern.h"

#include <map>
#include <string>

namespace rvn::tests
{

namespace
{

// Each function's instructions, by its readable name, with the symbol that a jump leads to.
std::map<std::string, std::string> codeByFunction()
{
    std::map<std::string, std::string> functions;
    const Pattern start("[0-9a-f]+ <rvng::Status rvng::(.*)>:");
    const Pattern instruction(" *[0-9a-f]+:\t(\\w+)( +([^<]*[^< ]))?.*");
    const Pattern relocation("\t+[0-9a-f]+: R_X86_64_PLT32\t(\\w+)-0x4");
    std::string* code = nullptr;
    for (const std::string& text :
         linesOf("objdump -dr --demangle --no-show-raw-insn '" OBJECT_FILE "'")) {
        if (const auto name = start.match(text); !name.empty())
            code = &functions[name[1]];
        else if (const auto symbol = relocation.match(text); !symbol.empty())
            *code += " " + symbol[1];
        else if (const auto part = instruction.match(text);
                 !part.empty() && !part[1].starts_with("nop"))
            *code +=
                (code->empty() ? "" : "; ") + part[1] + (part[1] == "jmp" ? "" : " " + part[3]);
    }
    return functions;
}

TEST(CppFaceCode, AFunctionIsTheJumpToItsKernel)
{
    const std::map<std::string, std::string> expected = {
        {"dftForward<48ul>", "jmp rvngDFTFwd_CToC_48_64fc"},
        {"dftForward<7ul>", "jmp rvngDFTFwd_CToC_7_32fc"},
        {"dftInverse<64ul>", "jmp rvngDFTInv_CToC_64_32fc"},
        {"dftForward<rvng::Ccs, 48ul>", "jmp rvngDFTFwd_RToCCS_48_64f"},
        {"dftForward<rvng::Pack, 5ul>", "jmp rvngDFTFwd_RToPack_5_32f"},
        {"dftInverse<rvng::Perm, 32ul>", "jmp rvngDFTInv_PermToR_32_64f"},
        {"hartley<63ul>", "jmp rvngHartley_63_32f"},
        {"wht<3ul>", "xor %ecx,%ecx; jmp rvngWHT_3_64f"}, // without a buffer
    };
    std::map<std::string, std::string> found;
    for (const auto& [name, code] : codeByFunction())
        found[name.substr(0, name.find('('))] = code;
    EXPECT_EQ(found, expected);
}

} // namespace

} // namespace rvn::tests
