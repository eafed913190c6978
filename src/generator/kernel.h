// A kernel as data: all that a family says of one, and all that makes a file of it. No order and,
// but for the loops of the DCT-IV engine, no text stands in a family, and nothing of transforms
// stands behind this header.
#pragma once

#include "generator/passes/formats.h"
#include "generator/passes/tally.h"

#include <string>
#include <variant>
#include <vector>

namespace rvn::generator
{

// The factor S under each flag.
struct ScaleFactors {
    double none;
    double bySqrtN;
    double fwdByN;
    double invByN;
};

// 1, 1/N and 1/sqrt(N) for a kernel of length N: 1/N in forward DFT kernels under one flag, in
// inverse ones under another, in transforms that are their own inverse under both.
ScaleFactors forwardScale(int length);
ScaleFactors inverseScale(int length);
ScaleFactors selfInverseScale(int length);

enum class WorkMemory : std::uint8_t { None, Ignored, Used };

// An exported function, and the factors that its flags select.
struct Exported {
    std::string name;
    std::string title;       // "Real DFT, forward, to CCS"
    std::string elementType; // of its prototype: Rvn64fc and the like
    ScaleFactors scale;
    WorkMemory workMemory = WorkMemory::None;
};

// One that runs straight through the kernel's only part: the slots of src that hold the inputs, the
// slots of dst that take the outputs, and those that are +0.0 without arithmetic.
struct StraightLine {
    Exported exported;
    std::vector<int> source;
    std::vector<int> destination;
    std::vector<int> zeros = {};
};

enum class Memory : std::uint8_t { Source, Work, Tail, Destination };

// A loop over a part: `count` sub-transforms, one every `step` elements, each over elements
// `stride` apart.
struct Pass {
    std::string title;
    int part = 0;
    Memory from;
    Memory to;
    int count;
    int step;
    int stride;
    bool isInBlock; // in the loop over blocks, which are read and written in their turn
};

// One that runs passes over work memory: blocks, each in the tail behind the whole transform before
// it goes to its place; with one block there is no such loop, and no tail.
struct Buffered {
    Exported exported;
    int length;
    int blocks;
    int blockLength;
    int workElements;
    std::vector<Pass> passes;
};

// A function of the DCT-IV engine: C++ places of the inputs and outputs, and the C++ around the
// operations, the parameters behind dst and src, what precedes the loop, what stands first in it,
// and how it goes on.
struct EngineBody {
    std::string name;
    std::vector<std::string> sources = {};
    std::vector<std::string> destinations = {};
    bool mayOverlap = false; // src and dst: then everything is read before anything is written
    std::vector<std::string> parameters = {};
    std::vector<std::string> before = {};
    std::vector<std::string> first = {};
    std::vector<std::string> advance = {}; // empty: no loop
};

// Where products by constants are evaluated in a binary32 kernel.
enum class Products : std::uint8_t { InBinary64, InElements };

// What a kernel computes: a finished graph, and how often it runs in a call.
struct Part {
    Graph graph;
    bool isScaled = true;
    int runs = 1;
};

struct Kernel {
    std::string family;    // the folder of its file
    std::string name;      // the file, the row of the list: "dft_real_fwd_36_64f"
    std::string transform; // "forward real DFT of length 36"
    std::string method;    // "Good-Thomas 9 x 4"
    Format format;
    Products products = Products::InBinary64;
    std::vector<Part> parts = {};
    Tally row = {}; // what its plan promises of one call
    std::variant<std::vector<StraightLine>, Buffered, EngineBody> functions = {};
};

// The names of its functions.
std::vector<std::string> functionsOf(const Kernel& kernel);

// Throws std::runtime_error, naming kernel, expected and found, unless the parts have the row's
// tally.
void requireRow(const Kernel& kernel);

// Names by format: the suffix of functions on real data and its element type.
std::string suffixOf(Format format);
std::string elementTypeOf(Format format);

// The slots 0 to count - 1, of a plain array of scalars.
std::vector<int> plainSlots(int count);

} // namespace rvn::generator
