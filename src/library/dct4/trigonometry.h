// The cosine and sine of pi x that the tables are made of.
//
// In 32f the angle itself is rounded to binary32 before the function is applied, so sin(pi x) of
// x = 1 is that of the binary32 number nearest to pi, -8.7e-8, and not 0.
#pragma once

extern "C" {
float rvngCosPi_32f(float x);
float rvngSinPi_32f(float x);
double rvngCosPi_64f(double x);
double rvngSinPi_64f(double x);
}
