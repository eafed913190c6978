// levels.h - how loud a recording is at which frequency.
#ifndef CONVOLVE_LEVELS_H
#define CONVOLVE_LEVELS_H

#include "sound.h"

#include <utility>
#include <vector>

// The mean of all channels and times: a row a band of 1/512 of the frequencies, its middle in Hz
// and its level in dB, 0 being a tone of full scale.
std::vector<std::pair<double, double>> meanLevels(const Sound& sound);

#endif
