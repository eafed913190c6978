// response_file.h - a finite impulse response from a file.
#ifndef CONVOLVE_RESPONSE_FILE_H
#define CONVOLVE_RESPONSE_FILE_H

#include <string>
#include <vector>

namespace convolve
{

// The taps that an audio file of one channel and of this sample rate holds, or a text file of
// numbers with spaces, commas or line ends between them; throws Failure for anything else.
std::vector<float> readResponse(const std::string& path, int sampleRate);

} // namespace convolve

#endif
