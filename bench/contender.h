// A contender: one transform of one size, ready to be called, and the loop that times it.
//
// Everything is prepared that its interface lets a caller prepare once: the kernel's address, a
// plan, a table, work memory.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

using Names = std::vector<std::string>;

struct Contender {
    std::string name;
    std::function<void()> transform;               // once, through no more than a pointer
    std::function<void(benchmark::State&)> repeat; // the timed loop, with the call built into it
};

// The compiler cannot see into the callee, which lies in a library; the clobber makes it take all
// memory to be read and written between two calls. What the call itself needs is copied into the
// loop's function, so that it stays in registers.
template <typename Call> Contender contender(const std::string& name, Call call)
{
    const auto repeat = [call](benchmark::State& state) {
        const Call callHere = call;
        for ([[maybe_unused]] auto iteration : state) {
            callHere();
            benchmark::ClobberMemory();
        }
    };
    return {.name = name, .transform = call, .repeat = repeat};
}
