/** @file rvncore.h
 * The work memory of the transforms.
 *
 * The one allocator that rvngenmx uses, in a library of its own, librvncore.so. rvngenmx imports
 * both functions by name, so a program that defines them itself, or a library loaded before, puts
 * its own allocator in their place. A program that calls or defines them links this library beside
 * rvngenmx: `pkg-config --libs rvngenmx rvncore`, or rvngenmx::rvncore in CMake.
 */
#ifndef RVNCORE_H
#define RVNCORE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define RVNCORE_API __attribute__((visibility("default")))
#else
#define RVNCORE_API
#endif

/**
 * @defgroup memory Work memory
 * The allocator that a program may replace by its own.
 * @{
 */

/** A block of at least `bytes` bytes, aligned to 64 bytes, its contents unspecified. Null when the
 * memory cannot be had or bytes is negative; a block that may only be released when bytes is 0. */
RVNCORE_API void* rvnMalloc(int32_t bytes);

/** Releases a block of rvnMalloc; null does nothing. */
RVNCORE_API void rvnFree(void* block);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
