// Fourteen chains of dependent operations, one a register: enough that no latency decides, so that
// what limits them is the number of operations of a kind that start in a cycle.

#include "studies.h"

#include "clock.h"

#include <cstddef>
#include <cstdio>
#include <vector>

namespace
{

constexpr int operationsInBlock = 14;
constexpr int blocks = 10; // without a jump
constexpr int passes = 50;
constexpr int operationsInCall = operationsInBlock * blocks * passes;

// All registers are zero, and stay it.
#define CHAINS(block)                                                                              \
    [] {                                                                                           \
        int left = passes;                                                                         \
        const float value = 0;                                                                     \
        asm volatile(".irp i,0,1,2,3,4,5,6,7,8,9,10,11,12,13,14\n\t"                               \
                     "xorps %%xmm\\i, %%xmm\\i\n\t"                                                \
                     ".endr\n"                                                                     \
                     "1:\n\t"                                                                      \
                     ".rept %c[blocks]\n\t" block ".endr\n\t"                                      \
                     "dec %[left]\n\t"                                                             \
                     "jnz 1b"                                                                      \
                     : [left] "+r"(left)                                                           \
                     : [value] "m"(value), [blocks] "i"(blocks)                                    \
                     : "cc", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7",       \
                       "xmm8", "xmm9", "xmm10", "xmm11", "xmm12", "xmm13", "xmm14");               \
    }

#define LOWER(operation) ".irp i,0,1,2,3,4,5,6\n\t" operation ", %%xmm\\i\n\t.endr\n\t"
#define UPPER(operation) ".irp i,7,8,9,10,11,12,13\n\t" operation ", %%xmm\\i\n\t.endr\n\t"
#define BOTH(operation) LOWER(operation) UPPER(operation)

std::vector<Contender> kinds()
{
    return {
        contender("additions", CHAINS(BOTH("addsd %%xmm14"))),
        contender("multiplications", CHAINS(BOTH("mulsd %%xmm14"))),
        contender("additions and multiplications",
                  CHAINS(LOWER("addsd %%xmm14") UPPER("mulsd %%xmm14"))),
        contender("widenings between registers", CHAINS(BOTH("cvtss2sd %%xmm14"))),
        contender("widenings from memory", CHAINS(BOTH("cvtss2sd %[value]"))),
        contender("roundings", CHAINS(BOTH("cvtsd2ss %%xmm14"))),
        contender("additions and widenings between registers",
                  CHAINS(LOWER("addsd %%xmm14") UPPER("cvtss2sd %%xmm14"))),
        contender("multiplications and widenings between registers",
                  CHAINS(LOWER("mulsd %%xmm14") UPPER("cvtss2sd %%xmm14"))),
    };
}

#undef BOTH
#undef UPPER
#undef LOWER
#undef CHAINS

} // namespace

void reportRates(const Options& options)
{
    const std::vector<Contender> all = kinds();
    const auto [timings, cycles] = measureInCycles(all, options.repetitions, options.seconds);
    std::printf(
        "\noperations a cycle: addsd, mulsd, cvtss2sd, cvtsd2ss; of two kinds half each\n\n");
    for (std::size_t i = 0; i < all.size(); ++i)
        std::printf("    %-52s %5.2f\n", all[i].name.c_str(),
                    operationsInCall / (cycles * timings[i].ratio));
}
