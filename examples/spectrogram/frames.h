// frames.h - one frame of samples: its shape, its window and its transform.
//
// The window is Hann's, centred on the frame: w[n] = (1 - cos(2 pi (n + 1/2) / N)) / 2. Being
// symmetric about (N - 1) / 2 it has a real frequency response seen from there, which the peak
// search relies on, and no sample of a frame gets the weight zero.
#ifndef SPECTROGRAM_FRAMES_H
#define SPECTROGRAM_FRAMES_H

#include <cstddef>
#include <span>
#include <vector>

namespace spectrogram
{

// The frames of a real channel or of a complex I/Q signal, as plain numbers.
struct FrameShape {
    int length = 0;  // samples of a frame, N
    bool iq = false; // a sample is a pair: real part, imaginary part

    std::size_t values() const { return static_cast<std::size_t>(iq ? 2 * length : length); }

    // Bins of a spectrum, pairs all of them. A real frame's end with N/2: the others would mirror
    // them.
    std::size_t bins() const { return static_cast<std::size_t>(iq ? length : length / 2 + 1); }

    // Which of the bins stands for number k, be it beyond them: bins repeat with the length, those
    // of a real frame are mirrored as well.
    std::size_t index(int k) const;
};

std::vector<float> hannWindow(int length);

// The mean over n of w[n] exp(2 pi i x (n - (N - 1) / 2) / N): what a tone of amplitude 1 that lies
// x bins beside a bin leaves in it. Real and even; 1/2 at 0, zero at every whole x from 2 to N - 2.
double hannResponse(int length, double x);

// Transforms consecutive frames. The forward transform carries the factor 1/N, so that levels do
// not depend on N; the inverse one returns the frames.
void transformFrames(std::span<const float> frames, std::span<float> spectra, FrameShape shape);
void inverseFrames(std::span<const float> spectra, std::span<float> frames, FrameShape shape);

} // namespace spectrogram

#endif
