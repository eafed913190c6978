// window.h - windows whose squares, overlapped by half, add up to 1 everywhere.
#ifndef MDCT_WINDOW_H
#define MDCT_WINDOW_H

#include <vector>

// The sine window separates neighbouring bins best; the Kaiser-Bessel-derived one, of alpha 4, what
// is far apart.
enum class Window : int { sine, kaiserBessel };

const char* nameOf(Window window);

// 2N values, symmetric, with w[n]^2 + w[N + n]^2 = 1 (the condition of Princen and Bradley, 1986).
std::vector<double> windowValues(Window window, int hop);

#endif
