// main.cpp - the convolve program: read, filter, compare, write, report.
//
//     convolve (--lowpass HZ | --highpass HZ | --bandpass LOW,HIGH) [--taps N] [-o OUT.wav] AUDIO
//     convolve --response FILE [-o OUT.wav] AUDIO
//
// Exit status: 0 done, 1 the files are at fault or the result is off, 2 the command line is at
// fault.
#include "comparison.h"
#include "convolution.h"
#include "failure.h"
#include "options.h"
#include "program.h"
#include "report.h"
#include "response.h"
#include "response_file.h"
#include "sound.h"

#include <cstdio>
#include <filesystem>

namespace
{

using namespace convolve;

// Refuses to write over what was read.
void expectNewFile(const std::string& output, const std::string& input, const char* what)
{
    std::error_code ignored;
    if (std::filesystem::equivalent(input, output, ignored))
        throw examples::Failure("'" + output + "' is the " + what +
                                "; the filtered recording needs another name");
}

void run(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (options.helpOnly) {
        std::fputs(usageText(), stdout);
        return;
    }
    const Sound sound = readSound(options.input);
    expectNewFile(options.output, options.input, "input");
    expectNewFile(options.output, options.responseFile, "response");
    const std::vector<float> response =
        options.responseFile.empty() ? designResponse(options.band, options.taps, sound.sampleRate)
                                     : readResponse(options.responseFile, sound.sampleRate);

    Convolver convolver(response);
    Sound filtered = {sound.sampleRate, {}};
    Distance distance;
    for (const std::vector<float>& channel : sound.channels) {
        filtered.channels.push_back(convolver.convolve(channel));
        const Distance its = distanceFromDirect(channel, response, filtered.channels.back());
        expectClose(its);
        distance = farther(distance, its);
    }
    writeSound(options.output, filtered);
    printReport(options, sound, response, filtered, convolver.use(), distance);
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("convolve", argc, argv, run);
}
