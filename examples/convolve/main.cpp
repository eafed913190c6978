// main.cpp - the convolve program: a recording through a filter, by products of spectra.
//
//     convolve (--lowpass HZ | --highpass HZ | --bandpass LOW,HIGH) [--taps N] [-o OUT.wav] AUDIO
//     convolve --response FILE [-o OUT.wav] AUDIO
//
// Spectra are in the Perm layout, 64 numbers of which the first two are real bins and the others
// complex ones:
//
//     slot     0      1      2     3     4     5   ...   62     63
//            R(0)   R(32)  R(1)  I(1)  R(2)  I(2)  ...  R(31)  I(31)
//
// So slots 0 and 1 multiply each alone, and slots 2k, 2k + 1 as one complex number. The forward
// transform is unscaled and the inverse one divides by 64 (RvnScaleInvByN): the product of two
// spectra then returns to the cyclic convolution itself.
//
// Exit status: 0 done, 1 the files are at fault or the result is off, 2 the command line is at
// fault.
#include "console.h"
#include "convolution.h"
#include "program.h"

void forward(const float* samples, float* spectrum)
{
    check(rvngDFTFwd_RToPerm_64_32f(samples, spectrum, RvnScaleInvByN));
}

void addProduct(const float* a, const float* b, float* sum)
{
    sum[0] += a[0] * b[0];
    sum[1] += a[1] * b[1];
    for (std::size_t i = 2; i < transformLength; i += 2) {
        sum[i] += a[i] * b[i] - a[i + 1] * b[i + 1];
        sum[i + 1] += a[i] * b[i + 1] + a[i + 1] * b[i];
    }
}

void inverse(const float* spectrum, float* samples)
{
    check(rvngDFTInv_PermToR_64_32f(spectrum, samples, RvnScaleInvByN));
}

namespace
{

void run(int argc, char** argv)
{
    Options options;
    if (!readOptions(options, argc, argv))
        return;
    const Sound sound = readSound(options.input);
    expectOtherFiles(options);
    const std::vector<float> response = responseOf(options, sound.sampleRate);

    Convolver convolver(response);
    Sound filtered = {sound.sampleRate, {}};
    Distance distance;
    for (const std::vector<float>& channel : sound.channels) {
        filtered.channels.push_back(convolver.convolve(channel));
        const Distance its = distanceFromDirect(channel, response, filtered.channels.back());
        expectClose(its);
        if (its.judged() > distance.judged())
            distance = its;
    }
    writeFiles(options, sound, filtered);
    printReport(options, sound, response.size(), filtered, convolver.use(), distance);
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("convolve", argc, argv, run);
}
