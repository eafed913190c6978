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
#include "report.h"

#include <cctype>
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
    AudioFile file(options.input);
    std::error_code ignored;
    if (std::filesystem::equivalent(options.input, options.output, ignored))
        throw Failure("'" + options.output + "' is the input; the picture needs another name");

    const Analysis analysis = analyse(file, options, plotWidth);
    const std::string title = std::filesystem::path(options.input).filename().string();
    const Canvas picture = drawPicture(analysis, title);
    writePng(options.output, picture);
    printReport(options, analysis, picture);
}

// File names may hold line feeds; the message stays one line.
int complain(std::string message, int status)
{
    for (char& character : message)
        if (std::iscntrl(static_cast<unsigned char>(character)))
            character = '?';
    std::fprintf(stderr, "spectrogram: %s\n", message.c_str());
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        run(argc, argv);
        return 0;
    } catch (const UsageFailure& failure) {
        return complain(failure.what(), 2);
    } catch (const std::exception& failure) {
        return complain(failure.what(), 1);
    }
}
