// png_input.h - reading PNG files of every kind.
#ifndef EXAMPLES_PNG_INPUT_H
#define EXAMPLES_PNG_INPUT_H

#include "picture.h"

#include <string>

namespace examples
{

// Reads the whole file; throws Failure unless it is a complete PNG of a size that can be handled.
// Palettes become red, green and blue, a transparent colour becomes an alpha channel, samples of
// fewer than 8 bits are stretched to 8. Profiles, texts and the like are not read.
Picture readPng(const std::string& path);

} // namespace examples

#endif
