// png_file.h - writing a canvas as a PNG file.
#ifndef SPECTROGRAM_PNG_FILE_H
#define SPECTROGRAM_PNG_FILE_H

#include "canvas.h"

#include <string>

namespace spectrogram
{

// Replaces or creates the file in one step: at no time is there half a picture under that name, and
// an older file stays as it is when something fails, which throws Failure.
void writePng(const std::string& path, const Canvas& canvas);

} // namespace spectrogram

#endif
