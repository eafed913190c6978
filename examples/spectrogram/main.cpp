// main.cpp - the spectrogram program: read, analyse, draw, write, report.
//
//     spectrogram [-n LENGTH] [--hop H] [--iq] [-o PICTURE.png] AUDIO
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "analysis.h"
#include "audio.h"
#include "level_plot.h"
#include "options.h"
#include "part_file.h"
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
    examples::expectOtherFile(options.output, options.input,
                              "is the input; the picture needs another name");

    const Analysis analysis = analyse(file, options, examples::plotWidth);
    const std::string title = std::filesystem::path(options.input).filename().string();
    const examples::Canvas picture = drawPicture(analysis, title);
    examples::PartFile pictureFile(options.output);
    writePng(pictureFile, picture);
    pictureFile.commit();
    printReport(options, analysis, picture);
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("spectrogram", argc, argv, run);
}
