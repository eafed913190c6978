// Whether all contenders of the Walsh-Hadamard transform compute the same thing.
#pragma once

#include "wht_contenders.h"

#include <span>

// Every contender on a number of random inputs. Throws std::runtime_error unless the results equal
// those of the first contender bit for bit.
template <typename Element>
void requireAgreement(std::span<const Contender> contenders, WhtBuffers<Element>& buffers,
                      int order, Placement placement);
