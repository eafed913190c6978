#include "generator/order/cost.h"

#include <algorithm>
#include <limits>
#include <map>

namespace rvn::generator
{

namespace
{

constexpr std::size_t registerCount = 16;
constexpr int never = std::numeric_limits<int>::max();

// Steps as what they read and give: values are nodes, and behind them constants.
struct Operation {
    std::vector<int> reads;
    int result = -1;
};

struct Program {
    std::vector<Operation> operations;
    int nodeCount;
    int valueCount;
};

Program programOf(const Graph& graph, const Schedule& schedule)
{
    const auto nodeCount = static_cast<int>(graph.nodes.size());
    Program program{{}, nodeCount, nodeCount};
    std::map<double, int> constants;
    for (const Step& step : schedule) {
        if (step.kind == Step::Kind::Store) {
            program.operations.push_back({{graph.outputs[step.index].node}});
            continue;
        }
        const Node& node = graph.nodes[step.index];
        Operation operation{{}, step.index};
        for (const int operand : operands(node))
            operation.reads.push_back(operand);
        if (node.op == Op::Multiply) {
            const auto [place, isNew] = constants.try_emplace(node.constant, program.valueCount);
            program.valueCount += isNew;
            operation.reads.push_back(place->second);
        }
        program.operations.push_back(operation);
    }
    return program;
}

class Registers
{
public:
    explicit Registers(const Program& program)
        : uses_(program.valueCount), nextUse_(program.valueCount), isInMemory_(program.valueCount)
    {
        for (int time = 0; time < std::ssize(program.operations); ++time)
            for (const int value : program.operations[time].reads)
                uses_[value].push_back(time);
        for (int value = program.nodeCount; value < program.valueCount; ++value)
            isInMemory_[value] = true;
    }

    void read(int value)
    {
        if (std::ranges::find(held_, value) == held_.end()) {
            ++accesses_;
            hold(value);
        }
    }

    void hold(int value)
    {
        if (held_.size() == registerCount)
            giveUpOne();
        held_.push_back(value);
    }

    // What has been read at this time moves on to its next use, or is done with.
    void passOver(int value, int time)
    {
        while (nextUseOf(value) <= time)
            ++nextUse_[value];
        if (nextUseOf(value) == never)
            std::erase(held_, value);
    }

    void accessMemory() { ++accesses_; }
    int accesses() const { return accesses_; }

private:
    int nextUseOf(int value) const
    {
        return nextUse_[value] < uses_[value].size() ? uses_[value][nextUse_[value]] : never;
    }

    void giveUpOne()
    {
        const auto last =
            std::ranges::max_element(held_, {}, [this](int value) { return nextUseOf(value); });
        if (!isInMemory_[*last]) {
            ++accesses_;
            isInMemory_[*last] = true;
        }
        held_.erase(last);
    }

    std::vector<std::vector<int>> uses_;
    std::vector<std::size_t> nextUse_;
    std::vector<bool> isInMemory_;
    std::vector<int> held_;
    int accesses_ = 0;
};

} // namespace

int memoryAccesses(const Graph& graph, const Schedule& schedule)
{
    const Program program = programOf(graph, schedule);
    Registers registers(program);
    for (int time = 0; time < std::ssize(program.operations); ++time) {
        const auto& [reads, result] = program.operations[time];
        for (const int value : reads)
            registers.read(value);
        for (const int value : reads)
            registers.passOver(value, time);
        if (reads.empty() || result < 0)
            registers.accessMemory();
        if (result >= 0)
            registers.hold(result);
    }
    return registers.accesses();
}

} // namespace rvn::generator
