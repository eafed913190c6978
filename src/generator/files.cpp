#include "generator/files.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace rvn::generator
{

void writeFile(const std::filesystem::path& folder, const GeneratedFile& file)
{
    const std::filesystem::path path = folder / file.name;
    std::ifstream present(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(present), {}};
    if (present.is_open() && text == file.text)
        return;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << file.text;
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace rvn::generator
