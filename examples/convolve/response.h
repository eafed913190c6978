// response.h - finite impulse responses: that pass a band, designed with a windowed sinc, or from a
// file.
#ifndef CONVOLVE_RESPONSE_H
#define CONVOLVE_RESPONSE_H

#include <string>
#include <vector>

// The frequencies to be passed, in Hz: low 0 makes a low-pass, high infinity a high-pass.
struct Band {
    double low = 0;
    double high = 0;
};

// "low-pass to 1000 Hz"
std::string bandText(Band band);

// A symmetric response of an odd number of taps, which delays by (taps - 1) / 2 samples. The gain
// is 1 at zero, at half the sample rate or in the middle of the band; at the edges about 1/2. The
// Hamming window leaves some -53 dB beyond 1.65 * sampleRate / taps from an edge. Throws Failure
// for edges that do not lie below half the sample rate.
std::vector<float> designResponse(Band band, int taps, int sampleRate);

// The taps that it takes to tell the edges from zero, from half the sample rate and, half way, from
// each other: each is as wide as the distance given above, on either side.
double tapsNeeded(Band band, int sampleRate);

// The taps that an audio file of one channel and of this sample rate holds, or a text file of
// numbers with spaces, commas or line ends between them; throws Failure for anything else.
std::vector<float> readResponse(const std::string& path, int sampleRate);

#endif
