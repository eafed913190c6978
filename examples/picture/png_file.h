// png_file.h - writing a canvas as a PNG file.
#ifndef EXAMPLES_PNG_FILE_H
#define EXAMPLES_PNG_FILE_H

#include "canvas.h"
#include "part_file.h"

namespace examples
{

// Fills the file, which is left to be committed; throws Failure when that fails.
void writePng(PartFile& file, const Canvas& canvas);

} // namespace examples

#endif
