/* SPDX-License-Identifier: MIT */
/* How tools read the log while it is written: the development build of the log library exports one
 * function that the library in the field does not have.
 *
 *     VellomarLogObserve(OnLine, &window);
 *
 * Look the function up by name, and do without where it is missing. */
#ifndef VELLOMAR_LOG_OBSERVER_H
#define VELLOMAR_LOG_OBSERVER_H

#include "vellomar/log.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Called for every line given to VellomarLogWrite, whatever the lowest level is and whether or not
 * a log is open. The texts are never null and belong to the caller. The observer must not write to
 * the log. [the thread that writes] */
typedef void VELLOMAR_ABI VellomarLogObserver(void* context, const char* module, int level,
                                              const char* text);

/* One observer at most; null removes it. Once it returns, the former one is not called again.
 * [any thread, not from inside an observer] */
VELLOMAR_LOG_API void VELLOMAR_ABI VellomarLogObserve(VellomarLogObserver* observer, void* context);

typedef void VELLOMAR_ABI VellomarLogObserveFunction(VellomarLogObserver* observer, void* context);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VELLOMAR_LOG_OBSERVER_H */
