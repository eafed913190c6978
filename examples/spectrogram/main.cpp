// main.cpp - the spectrogram program: read, analyse, draw, write, report.
//
//     spectrogram [-n LENGTH] [--hop H] [--iq] [-o PICTURE.png] AUDIO
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "analysis.h"
#include "audio.h"
#include "failure.h"
#include "options.h"
#include "picture.h"
#include "png_file.h"
#include "program.h"
#include "report.h"

#include <cstdio>
#include <filesystem>

namespace
{

using namespace spectrogram;

void run(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (options.helpOnly) {
        std::fputs(usageText(), stdout);
        return;
    }
    examples::AudioFile file(options.input);
    std::error_code ignored;
    if (std::filesystem::equivalent(options.input, options.output, ignored))
        throw examples::Failure("'" + options.output +
                                "' is the input; the picture needs another name");

    const Analysis analysis = analyse(file, options, plotWidth);
    const std::string title = std::filesystem::path(options.input).filename().string();
    const Canvas picture = drawPicture(analysis, title);
    writePng(options.output, picture);
    printReport(options, analysis, picture);
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("spectrogram", argc, argv, run);
}
