// main.cpp - the convolve program: read, filter, compare, write, report.
//
//     convolve (--lowpass HZ | --highpass HZ | --bandpass LOW,HIGH) [--taps N] [-o OUT.wav] AUDIO
//     convolve --response FILE [-o OUT.wav] AUDIO
//
// Exit status: 0 done, 1 the files are at fault or the result is off, 2 the command line is at
// fault.
#include "comparison.h"
#include "convolution.h"
#include "options.h"
#include "part_file.h"
#include "program.h"
#include "report.h"
#include "response.h"
#include "response_file.h"
#include "sound.h"

#include <cstdio>

namespace
{

using namespace convolve;

void run(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (options.helpOnly) {
        std::fputs(usageText(), stdout);
        return;
    }
    const examples::Sound sound = examples::readSound(options.input);
    examples::expectOtherFile(options.output, options.input,
                              "is the input; the filtered recording needs another name");
    examples::expectOtherFile(options.output, options.responseFile,
                              "is the response; the filtered recording needs another name");
    const std::vector<float> response =
        options.responseFile.empty() ? designResponse(options.band, options.taps, sound.sampleRate)
                                     : readResponse(options.responseFile, sound.sampleRate);

    Convolver convolver(response);
    examples::Sound filtered = {sound.sampleRate, {}};
    Distance distance;
    for (const std::vector<float>& channel : sound.channels) {
        filtered.channels.push_back(convolver.convolve(channel));
        const Distance its = distanceFromDirect(channel, response, filtered.channels.back());
        expectClose(its);
        distance = farther(distance, its);
    }
    examples::PartFile file(options.output);
    writeSound(file, filtered);
    file.commit();
    printReport(options, sound, response, filtered, convolver.use(), distance);
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("convolve", argc, argv, run);
}
