// What a kernel called through the dispatcher of its transform takes beside the kernel itself.
#pragma once

#include "options.h"

void reportDispatch(const Options& options);
