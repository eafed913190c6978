// From a graph to the C++ text of a kernel.
#pragma once

#include "kernelgen/choice.h"
#include "kernelgen/precision.h"

#include <string>

namespace rvn::kernelgen
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

// One exported function: its name, the element type of its prototype (Rvn64fc and the like), the
// format of its scalars, the factors that its flags select, and whether it takes work memory.
struct Function {
    std::string name;
    std::string elementType;
    Format format;
    ScaleFactors scale;
    WorkMemory workMemory = WorkMemory::None;
};

// Names by format: the suffix of kernels of real data and its element type, and the scalar type
// through which a kernel reads and writes arrays.
std::string suffixOf(Format format);
std::string elementTypeOf(Format format);
std::string scalarType(Format format);

// The slots 0 to count - 1, of a plain array of scalars.
std::vector<int> plainSlots(int count);

// The function's head: argument checks, then the choice of S.
std::string emitHead(const Function& function);

// C++ expressions of places in memory, such as "in[3]".
using Places = std::vector<std::string>;

Places placesIn(const std::string& array, const std::vector<int>& slots);

// Where the inputs of a graph are read and its outputs are written, in which formats it computes,
// whether the outputs are multiplied by S, and which places are +0.0 without arithmetic.
struct Body {
    Format format;
    std::vector<NodeFormat> formats;
    Places sources;
    Places destinations;
    Places zeros = {};
    bool isScaled = true;
    int indent = 4;
};

// The body of a kernel that reads its inputs from these slots behind `in`, and writes its outputs
// to those behind `out`.
Body kernelBody(const Graph& graph, Format format, const std::vector<int>& sourceSlots,
                const std::vector<int>& destinationSlots, const std::vector<int>& zeroSlots = {});

// Loads, arithmetic and stores, one operation a line.
std::string emitBody(const Body& body, const Graph& graph, const Schedule& schedule);

// A whole straight-line kernel: the head, then one body.
std::string emitKernel(const Function& function, const Body& body, const Graph& graph,
                       const ChosenSchedule& chosen);

} // namespace rvn::kernelgen
