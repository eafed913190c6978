// png_output.h - writing a picture as a PNG file.
#ifndef HADAMARD_PNG_OUTPUT_H
#define HADAMARD_PNG_OUTPUT_H

#include "picture.h"

#include <string>

namespace hadamard
{

// Replaces or creates the file in one step, see part_file.h; throws Failure when that cannot be
// done. The file has the picture's channels and depth.
void writePng(const std::string& path, const Picture& picture);

} // namespace hadamard

#endif
