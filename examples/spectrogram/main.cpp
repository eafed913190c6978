// main.cpp - the spectrogram program: an audio file in windowed frames, each through one transform.
//
//     spectrogram [-n LENGTH] [--hop H] [--iq] [-o PICTURE.png] AUDIO
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "analysis.h"
#include "console.h"
#include "program.h"

namespace
{

// The library's complex numbers are pairs of plain ones.
const Rvn32fc* pairs(const float* values)
{
    return reinterpret_cast<const Rvn32fc*>(values);
}
Rvn32fc* pairs(float* values)
{
    return reinterpret_cast<Rvn32fc*>(values);
}

} // namespace

// A real channel takes the real transform, whose layout CCS is the spectrum's bins 0 to N/2 as
// pairs; the two channels I and Q are one complex signal. With the factor 1/N on the way there,
// levels do not depend on N.
void forward(const float* frame, float* spectrum, FrameShape shape)
{
    check(shape.iq
              ? rvngDFTFwd_CToC_32fc(pairs(frame), pairs(spectrum), shape.length, RvnScaleFwdByN)
              : rvngDFTFwd_RToCCS_32f(frame, spectrum, shape.length, RvnScaleFwdByN));
}

void inverse(const float* spectrum, float* frame, FrameShape shape)
{
    check(shape.iq
              ? rvngDFTInv_CToC_32fc(pairs(spectrum), pairs(frame), shape.length, RvnScaleFwdByN)
              : rvngDFTInv_CCSToR_32f(spectrum, frame, shape.length, RvnScaleFwdByN));
}

namespace
{

void run(int argc, char** argv)
{
    Options options;
    if (!readOptions(options, argc, argv))
        return;
    const Sound sound = readSound(options.input);
    expectFit(options, sound);
    const Analysis analysis = analyse(sound, {options.length, options.iq}, options.hop);

    PartFile picture(options.output);
    drawPicture(picture, options, sound, analysis);
    picture.commit();
    printReport(options, sound, analysis);
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("spectrogram", argc, argv, run);
}
