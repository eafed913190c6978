// png_output.h - writing a picture as a PNG file.
#ifndef EXAMPLES_PNG_OUTPUT_H
#define EXAMPLES_PNG_OUTPUT_H

#include "part_file.h"
#include "picture.h"

namespace examples
{

// Fills the file, which is left to be committed; throws Failure when that fails. The file has the
// picture's channels and depth.
void writePng(PartFile& file, const Picture& picture);

} // namespace examples

#endif
