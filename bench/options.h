// What one run of the benchmark measures, and how it is asked for on the command line.
#pragma once

#include <string>
#include <vector>

constexpr int shortestLength = 2; // of the DFTs and the Hartley transform
constexpr int longestLength = 64;
constexpr int lowestOrder = 1; // of the Walsh-Hadamard transform
constexpr int highestOrder = 13;
constexpr int smallestSize = 2; // of the DCT-IV, powers of two
constexpr int largestSize = 1 << 20;
constexpr int largestQuickSize = 1 << 15;

// Complex DFT, real DFT, Hartley transform, Walsh-Hadamard transform, DCT-IV.
enum class Family { Complex, Real, Hartley, Wht, Dct4 };

enum class Precision { Single, Double };      // elements 32fc and 32f, 64fc and 64f
enum class Direction { Forward, Inverse };    // rvngDFTFwd_..., rvngDFTInv_...
enum class Placement { OutOfPlace, InPlace }; // where the result goes: a second array or the first

struct Options;

// What else can be measured, instead of the families: studies.h.
using Study = void (*)(const Options&);

struct Options {
    std::vector<Family> families = {Family::Complex, Family::Real, Family::Hartley, Family::Wht,
                                    Family::Dct4};
    std::vector<Study> studies; // none: the families
    std::vector<int> lengths;   // ascending
    std::vector<int> orders;    // ascending
    std::vector<int> sizes;     // ascending
    bool quick = false;
    std::vector<Precision> precisions = {Precision::Double, Precision::Single};
    Direction direction = Direction::Forward;
    Placement placement = Placement::OutOfPlace;
    int repetitions = 31;
    double seconds = 0.008;              // the time that a repetition takes, about
    std::vector<double> limits = {0.90}; // ratios below these are listed
    std::string output;                  // folder of the data files; empty: none are written
};

// Prints usage.inc and exits for --help. Throws std::invalid_argument, with one line that names the
// option at fault.
Options parseOptions(int count, char** arguments);

// All sizes between the bounds, or all powers of two, the first bound being one.
std::vector<int> allSizes(int least, int most);
std::vector<int> powersOfTwo(int least, int most);
