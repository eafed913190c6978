// status.h - the library's statuses as failures.
#ifndef EXAMPLES_STATUS_H
#define EXAMPLES_STATUS_H

#include "failure.h"

#include <rvngenmx.h>
#include <string>

namespace examples
{

// Throws Failure for a status other than RvnStatusNoError.
inline void check(RvnStatus status)
{
    if (status != RvnStatusNoError)
        throw Failure("the transform failed with status " + std::to_string(status));
}

} // namespace examples

#endif
