// analysis.h - what is learnt from a whole recording: spectra, speed and round-trip error.
//
// Frames have Hann's window, centred on them: w[n] = (1 - cos(2 pi (n + 1/2) / N)) / 2. Being
// symmetric about (N - 1) / 2 it has a real frequency response seen from there, which the peak
// search relies on, and no sample of a frame gets the weight zero.
#ifndef SPECTROGRAM_ANALYSIS_H
#define SPECTROGRAM_ANALYSIS_H

#include "sound.h"

#include <string>
#include <vector>

// The frames of a real channel or of a complex I/Q signal, as plain numbers.
struct FrameShape {
    int length = 0;  // samples of a frame, N
    bool iq = false; // a sample is a pair: real part, imaginary part

    std::size_t values() const { return iq ? 2 * length : length; }

    // Bins of a spectrum, pairs all of them. A real frame's end with N/2: the others would mirror
    // them.
    std::size_t bins() const { return iq ? length : length / 2 + 1; }

    // Which of the bins stands for number k, be it beyond them: bins repeat with the length, those
    // of a real frame are mirrored as well.
    std::size_t index(int k) const
    {
        const int repeated = ((k % length) + length) % length;
        return iq || repeated <= length / 2 ? repeated : length - repeated;
    }
};

// One frame there and back.
void forward(const float* frame, float* spectrum, FrameShape shape);
void inverse(const float* spectrum, float* frame, FrameShape shape);

// The signal of one panel: a real channel or the complex I/Q signal, X[k] being bin k of a frame.
struct Panel {
    std::string name;

    // Means over all frames, one value a bin.
    std::vector<double> power;     // |X[k]|^2
    std::vector<double> evenPower; // the square of X[k]'s real part, phases counted from the
                                   // frame's centre; of a real channel that is its even half

    // The same power over time: means of consecutive frames, one value a bin for each cell.
    std::vector<double> cells;
};

struct Analysis {
    FrameShape shape;
    int hop = 0;
    std::size_t frames = 0, cellCount = 0; // the frames are spread evenly over the cells
    std::vector<Panel> panels;

    double forwardSeconds = 0; // spent in forward transforms only, frames x panels of them
    double roundTripError = 0; // rms(inverse(forward(x)) - x) / rms(x), x the windowed frames
};

// The recording has a frame or more, and two channels for I/Q.
Analysis analyse(const Sound& sound, FrameShape shape, int hop);

#endif
