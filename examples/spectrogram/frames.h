// frames.h - one frame of samples: its window and its transform.
//
// The window is Hann's, centred on the frame: w[n] = (1 - cos(2 pi (n + 1/2) / N)) / 2. Being
// symmetric about (N - 1) / 2 it has a real frequency response seen from there, which the peak
// search relies on, and no sample of a frame gets the weight zero.
#ifndef SPECTROGRAM_FRAMES_H
#define SPECTROGRAM_FRAMES_H

#include <rvngenmx.h>

#include <span>
#include <vector>

namespace spectrogram
{

std::vector<float> hannWindow(int length);

// The mean over n of w[n] exp(2 pi i x (n - (N - 1) / 2) / N): what a tone of amplitude 1 that lies
// x bins beside a bin leaves in it. Real and even; 1/2 at 0, zero at every whole x from 2 to N - 2.
double hannResponse(int length, double x);

// Transforms consecutive frames of the given length. The forward transform carries the factor 1/N,
// so that levels do not depend on N; the inverse one returns the frames.
//
// Real channels pass through here as well, with imaginary parts of zero.
void transformFrames(std::span<const Rvn32fc> frames, std::span<Rvn32fc> spectra, int length);
void inverseFrames(std::span<const Rvn32fc> spectra, std::span<Rvn32fc> frames, int length);

} // namespace spectrogram

#endif
