// Generated files.
#pragma once

#include <filesystem>
#include <string>

namespace rvn::generator
{

struct GeneratedFile {
    std::string name;
    std::string text;
};

// Writes the file into the folder, only when its bytes change, so that nothing is compiled again
// without need. Throws std::runtime_error when it cannot.
void writeFile(const std::filesystem::path& folder, const GeneratedFile& file);

} // namespace rvn::generator
