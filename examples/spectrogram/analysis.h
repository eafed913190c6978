// analysis.h - what is learnt from a whole audio file: spectra, speed and round-trip error.
//
// The file is read once, a batch of frames at a time; memory does not grow with its length.
#ifndef SPECTROGRAM_ANALYSIS_H
#define SPECTROGRAM_ANALYSIS_H

#include "audio.h"
#include "frames.h"
#include "options.h"

#include <cstdint>
#include <string>
#include <vector>

namespace spectrogram
{

// The signal of one panel: a real channel or the complex I/Q signal. X[k] is bin k of a frame, of
// those that FrameShape tells.
struct Panel {
    std::string name;

    // Means over all frames, one value a bin.
    std::vector<double> power;     // |X[k]|^2
    std::vector<double> evenPower; // the square of X[k]'s real part, phases counted from the
                                   // frame's centre; of a real channel that is its even half

    // The same power over time: means of consecutive frames, cellCount rows of one value a bin.
    std::vector<double> cells;
};

struct Analysis {
    FrameShape shape; // of I/Q there is one panel, else the panels are real channels
    int hop = 0;
    int sampleRate = 0;
    std::int64_t samples = 0;
    std::int64_t frames = 0;
    int cellCount = 0; // the frames are spread evenly over the cells, at least one for each
    std::vector<Panel> panels;

    double forwardSeconds = 0; // spent in forward transforms only, frames x panels of them
    double roundTripError = 0; // rms(inverse(forward(x)) - x) / rms(x), x the windowed frames
};

// Analyses the file into at most mostCells cells; throws Failure if it does not fit the options.
Analysis analyse(examples::AudioFile& file, const Options& options, int mostCells);

} // namespace spectrogram

#endif
