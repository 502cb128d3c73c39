/* SPDX-License-Identifier: MIT */
/* The log library, `vellomar-log-dll`: the plug-in writes through it, the host chooses the build.
 *
 * The plug-in passes `kind`, `first` and `second` on from ExportedInit. The log library
 * decides what they mean; the development build reads them as its README says. */
#ifndef VELLOMAR_LOG_H
#define VELLOMAR_LOG_H

#include <stdint.h>

#include "vellomar/abi.h"

#if defined(_WIN32) && defined(VELLOMAR_LOG_BUILD)
#  define VELLOMAR_LOG_API __declspec(dllexport)
#elif defined(_WIN32)
#  define VELLOMAR_LOG_API __declspec(dllimport)
#else
#  define VELLOMAR_LOG_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Levels that the plug-in writes at. */
enum {
  VELLOMAR_LOG_INFO = 3,    /* what happens */
  VELLOMAR_LOG_FAULT = 4,   /* what went wrong */
  VELLOMAR_LOG_REFUSED = 5, /* an input that was refused as a whole */
};

/* Opens the log; a further call opens it anew. `first` and `second` may be null. The plug-in passes
 * "vellomar_controlbar", 0, 7 and 1 for the last four. The result is not used. [loop thread] */
VELLOMAR_LOG_API int VELLOMAR_ABI CreateVellomarLogger(uint32_t kind, const char* first,
                                                       const char* second, const char* module,
                                                       int reserved, int files, int flush);

/* Writes one line. The texts belong to the caller and are read during the call. Before
 * CreateVellomarLogger the line may be dropped. [any thread] */
VELLOMAR_LOG_API void VELLOMAR_ABI VellomarLogWrite(const char* module, int level,
                                                    const char* text);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VELLOMAR_LOG_H */
