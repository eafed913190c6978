// main.cpp - the mdct program: read, transform, drop, transform back, draw, write, report.
//
//     mdct [-n HOP] [-k SHARE] [-w sine|kbd] [-o REBUILT.wav] [-p PICTURE.png] AUDIO
//
// Exit status: 0 done, 1 the files are at fault or the result is off, 2 the command line is at
// fault.
#include "comparison.h"
#include "options.h"
#include "part_file.h"
#include "picture.h"
#include "png_file.h"
#include "program.h"
#include "report.h"
#include "selection.h"
#include "sound.h"
#include "spectrum.h"
#include "transform.h"

#include <cstdio>

namespace
{

using namespace mdct;

constexpr int mostChannels = 8;

// Both files take their names when both are whole.
void writeFiles(const Options& options, const examples::Sound& rebuilt,
                const examples::Canvas& picture)
{
    examples::PartFile soundFile(options.output);
    writeSound(soundFile, rebuilt);
    examples::PartFile pictureFile(options.picture);
    writePng(pictureFile, picture);
    soundFile.commit();
    pictureFile.commit();
}

void run(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (options.helpOnly) {
        std::fputs(usageText(), stdout);
        return;
    }
    const examples::Sound sound = examples::readSound(options.input, mostChannels);
    examples::expectOtherFile(options.output, options.input,
                              "is the input; the rebuilt recording needs another name");
    examples::expectOtherFile(options.picture, options.input,
                              "is the input; the picture needs another name");

    Transform transform(options.hop, options.window);
    Spectrum spectrum = analyse(sound, transform);
    Quality quality = {};
    quality.fromAll = signalToNoise(sound, synthesise(spectrum, sound, transform));
    expectRebuilt(quality.fromAll);

    const examples::Selection selection = examples::keepLargest(spectrum.values, options.share);
    const examples::Sound rebuilt = synthesise(spectrum, sound, transform);
    quality.fromKept = signalToNoise(sound, rebuilt);

    const examples::Canvas picture = drawPicture(options, sound, spectrum, transform.toneGain());
    writeFiles(options, rebuilt, picture);
    printReport(options, sound, transform, selection, quality, picture);
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("mdct", argc, argv, run);
}
