// main.cpp - the ofdm program: read, send, receive, draw, write, report.
//
//     ofdm [-m qpsk|16qam] [-s M] [-n DECIBELS] [-c white|multipath] [-o RECEIVED.png] PICTURE.png
//
// Exit status: 0 done, 1 the files are at fault, 2 the command line is at fault.
#include "constellation_plot.h"
#include "error_rate_plot.h"
#include "failure.h"
#include "options.h"
#include "part_file.h"
#include "payload.h"
#include "png_file.h"
#include "png_input.h"
#include "png_output.h"
#include "program.h"
#include "report.h"
#include "theory.h"

#include <cstdio>
#include <optional>

namespace
{

using namespace ofdm;
using examples::PartFile;
using examples::Picture;

Picture readPicture(const Options& options)
{
    const Picture picture = examples::readPng(options.input);
    if (picture.depth != 8)
        throw examples::Failure("'" + options.input + "': has " + std::to_string(picture.depth) +
                                " bits a sample; only 8 are understood");
    for (const std::string& output : {options.output, options.constellation, options.errorRates})
        examples::expectOtherFile(output, options.input,
                                  "is the input; what is written needs another name");
    return picture;
}

Link linkOf(const Options& options)
{
    return Link({options.modulation, options.spread, options.channel,
                 1 / fromDecibels(options.decibels), options.seed});
}

// The files are created before the work on them, and take their names when all are whole.
void writeFiles(const Options& options, const Picture& received, const Link& link)
{
    PartFile file(options.output);
    std::optional<PartFile> constellation, errorRates;
    if (!options.constellation.empty())
        constellation.emplace(options.constellation);
    if (!options.errorRates.empty())
        errorRates.emplace(options.errorRates);

    writePng(file, received);
    if (constellation)
        writePng(*constellation, drawConstellation(options, link));
    if (errorRates)
        writePng(*errorRates, drawErrorRates(options, link.tally()));

    file.commit();
    if (constellation)
        constellation->commit();
    if (errorRates)
        errorRates->commit();
}

void run(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    if (options.helpOnly) {
        std::fputs(usageText(), stdout);
        return;
    }
    const Picture picture = readPicture(options);
    const std::vector<std::uint8_t> payload = payloadOf(picture);
    std::vector<std::uint8_t> arrived(payload.size());
    Link link = linkOf(options);
    link.send(payload, arrived);
    const Picture received = pictureFrom(std::move(arrived), picture);

    writeFiles(options, received, link);
    printReport(options, picture, link, compare(picture, received));
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("ofdm", argc, argv, run);
}
