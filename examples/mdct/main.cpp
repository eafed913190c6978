// main.cpp - the mdct program: a recording rebuilt from the strongest coefficients of its modified
// discrete cosine transform, which is a window, a folding and one DCT-IV a frame.
//
//     mdct [-n HOP] [-k SHARE] [-w sine|kbd] [-o REBUILT.wav] [-p PICTURE.png] AUDIO
//
// The cosines of the MDCT are those of a DCT-IV gone on beyond its N values, odd at one end and
// even at the other; so the frame, in quarters a b c d and with r for reversed ones, folds into
//
//     (-c_r - d, a - b_r),   N values, whose DCT-IV is the MDCT of the frame.
//
// The DCT-IV applied twice gives N/2 times that, (g, h), which unfolds to the frame
//
//     (h, -h_r, -g_r, -g) = (a - b_r, b - a_r, c + d_r, d + c_r).
//
// Exit status: 0 done, 1 the files are at fault or the result is off, 2 the command line is at
// fault.
#include "console.h"
#include "part_file.h"
#include "program.h"
#include "transform.h"

#include <cmath>

void Transform::forwardFrame(const float* x, std::span<float> X)
{
    const std::size_t half = hop_ / 2;
    const auto at = [&](std::size_t n) { return window_[n] * x[n]; };
    for (std::size_t n = 0; n < half; ++n) {
        X[n] = -at(hop_ + half - 1 - n) - at(hop_ + half + n);
        X[half + n] = at(n) - at(hop_ - 1 - n);
    }
    check(dct4_.run(X, X));
}

void Transform::inverseFrame(std::span<const float> X, float* x)
{
    check(dct4_.run(X, folded_));
    const std::size_t half = hop_ / 2;
    const auto add = [&](std::size_t n, float value) { x[n] += window_[n] * value; };
    for (std::size_t n = 0; n < half; ++n) {
        add(n, folded_[half + n]);
        add(hop_ - 1 - n, -folded_[half + n]);
        add(hop_ + half - 1 - n, -folded_[n]);
        add(hop_ + half + n, -folded_[n]);
    }
}

namespace
{

// In dB, the energy of the original over that of the difference.
double signalToNoise(const Sound& original, const Sound& rebuilt)
{
    double signal = 0, noise = 0;
    for (std::size_t i = 0; i < original.channels.size(); ++i)
        for (std::size_t n = 0; n < original.samples(); ++n) {
            const double value = original.channels[i][n];
            const double error = rebuilt.channels[i][n] - value;
            signal += value * value;
            noise += error * error;
        }
    return noise == 0 ? INFINITY : 10 * std::log10(signal / noise);
}

void run(int argc, char** argv)
{
    Options options;
    if (!readOptions(options, argc, argv))
        return;
    const Sound sound = readSound(options.input, 8);
    for (const auto& [file, words] :
         {std::pair(options.output, "is the input; the rebuilt recording needs another name"),
          std::pair(options.picture, "is the input; the picture needs another name")})
        expectOtherFile(file, options.input, words);

    Transform transform(options.hop, options.window);
    Spectrum spectrum = transform.analyse(sound);
    Quality quality = {};
    quality.fromAll = signalToNoise(sound, transform.synthesise(spectrum, sound));
    expectRebuilt(quality.fromAll);
    const Selection selection = keepLargest(spectrum.values, options.share);
    const Sound rebuilt = transform.synthesise(spectrum, sound);
    quality.fromKept = signalToNoise(sound, rebuilt);

    // Both files take their names when both are whole.
    PartFile soundFile(options.output);
    writeSound(soundFile, rebuilt);
    PartFile pictureFile(options.picture);
    drawPicture(pictureFile, options, sound, spectrum, transform.toneGain());
    soundFile.commit();
    pictureFile.commit();
    printReport(options, sound, transform, selection, quality);
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("mdct", argc, argv, run);
}
