// report.h - what the program prints, and the words it shares with the plots.
#ifndef OFDM_REPORT_H
#define OFDM_REPORT_H

#include "comparison.h"
#include "link.h"
#include "options.h"
#include "picture.h"

#include <string>

namespace ofdm
{

constexpr int defaultSpread = 48; // of the spread signal that plain OFDM is held against

std::string waveformText(int spread);
std::string channelText(ChannelKind channel);
std::string ratioText(double decibels); // Es/N0

// Prints one line a fact on standard output.
void printReport(const Options& options, const examples::Picture& picture, const Link& link,
                 const examples::Comparison& comparison);

} // namespace ofdm

#endif
