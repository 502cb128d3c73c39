/* SPDX-License-Identifier: MIT */
/* The binary interface of the control-bar plug-in: what a host needs to load and drive it.
 *
 * The host loads the library, resolves the eight exports below by name and calls
 *
 *     ExportedInit(...);  ExportedStart();
 *     VellomarShowControlbar record = {{0, 0, 1920, 1080}, 0};
 *     ExportedCallEvent(VELLOMAR_COMMAND_showSharedControlbar, 0, &record);
 *     ...
 *     ExportedStop();     ExportedUninit();
 *
 * Compiles as C11 and as C++20.
 *
 * Thread: call every export on the thread that runs the host's event loop, marked [loop thread], or
 * serialise the calls with the loop's callbacks. The plug-in takes no lock and starts no thread.
 *
 * Errors: no exception leaves the plug-in, through an export or through a callback that it gave to
 * the host; ExportedInit alone lets a failure to get memory out, as std::bad_alloc. Faults are
 * written to the log library (vellomar/log.h); the results below say all that a host can learn from
 * a call.
 *
 * Memory: whoever creates a text or a record owns it. The other side may read it during the call
 * only and copies what it keeps. 64-bit ids cross as two 32-bit words, low word first.
 */
#ifndef VELLOMAR_CONTROLBAR_H
#define VELLOMAR_CONTROLBAR_H

#include <stdbool.h>
#include <stdint.h>

#include "vellomar/abi.h"
#include "vellomar/command_records.h"
#include "vellomar/notification_records.h"
#include "vellomar/version.h"

#if defined(_WIN32)
#  if defined(VELLOMAR_CONTROLBAR_BUILD)
#    define VELLOMAR_CONTROLBAR_API __declspec(dllexport)
#  else
#    define VELLOMAR_CONTROLBAR_API __declspec(dllimport)
#  endif
#else
#  define VELLOMAR_CONTROLBAR_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The host's notification entry point. `sender` is VELLOMAR_SENDER, `payload` the record that
 * vellomar/notification_table.def names for the id, or null for one without payload. Record and
 * texts belong to the plug-in and are freed when the call returns. [UI thread of the widgets] */
typedef void VELLOMAR_ABI VellomarNotify(const char* sender, uint32_t id_low, uint32_t id_high,
                                         void* payload);

/* The host's request entry point. The host writes its answer into `record` before it returns. The
 * one request in use is VELLOMAR_REQUEST_PARTICIPANT. [loop thread] */
typedef void VELLOMAR_ABI VellomarSendRequest(const char* sender, uint32_t id_low, uint32_t id_high,
                                              void* record);

/* The identity under which the plug-in sends requests and notifications. */
#define VELLOMAR_SENDER "VELLOMAR_CONTROLBAR_uuid"

/* What the plug-in gives the host's loop to call back, with the context that came with it. */
typedef void VELLOMAR_ABI VellomarLoopCallback(void* context);

/* The host's event loop: sixteen functions, in this order. The host owns the record, the plug-in
 * copies it at ExportedInit. Every slot may be null; what needs it is then skipped, and its result
 * is 0. The host calls a one-shot callback at most once, and never after it has unloaded the
 * library. */
typedef struct VellomarEventLoopTable {
  /* 1: a question to the host, whose answer is forwarded as it is; the plug-in asks none yet. */
  uint32_t(VELLOMAR_ABI* queryFn)(uint32_t first, uint32_t second);
  /* 2: calls back at every turn of the loop until removed; returns an id for slot 3. */
  uint64_t(VELLOMAR_ABI* addObserverFn)(VellomarLoopCallback* callback, void* context);
  /* 3: ends what slot 2 began; the id is the one that it returned. */
  void(VELLOMAR_ABI* removeObserverFn)(uint64_t id);
  /* 4: calls back again and again, `value` apart in the host's own unit, until stopped by slot 5.
   */
  uint64_t(VELLOMAR_ABI* startTimerFn)(uint64_t value, VellomarLoopCallback* callback,
                                       void* context);
  /* 5: ends what slot 4 began. Once it returns, the callback is not called again. */
  void(VELLOMAR_ABI* stopTimerFn)(uint64_t id);
  /* 6: calls back once, after `value` in the host's own unit. */
  uint64_t(VELLOMAR_ABI* postDelayedFn)(uint64_t value, VellomarLoopCallback* callback,
                                        void* context);
  /* 7: ends what slot 6 began; an id that is not pending is ignored. */
  void(VELLOMAR_ABI* cancelDelayedFn)(uint64_t id);
  /* 8: has called back, on the loop's thread, when it returns. */
  void(VELLOMAR_ABI* runSyncFn)(VellomarLoopCallback* callback, void* context);
  /* 9: calls back once; the route of the posted commands. Ids are the host's, unique while pending.
   */
  uint64_t(VELLOMAR_ABI* postFn)(VellomarLoopCallback* callback, void* context);
  /* 10: as slot 8, with a result that is forwarded. */
  uint32_t(VELLOMAR_ABI* runSyncAltFn)(VellomarLoopCallback* callback, void* context);
  /* 11, 12: two further one-shot routes. */
  uint64_t(VELLOMAR_ABI* postAlt1Fn)(VellomarLoopCallback* callback, void* context);
  uint64_t(VELLOMAR_ABI* postAlt2Fn)(VellomarLoopCallback* callback, void* context);
  /* 13: cancels what slots 9 and 11 posted. It serves both on purpose. */
  void(VELLOMAR_ABI* cancelTaskFn)(uint64_t id);
  /* 14: kept for the layout, never read. */
  void(VELLOMAR_ABI* unreadFn)(uint64_t id);
  /* 15: cancels what slot 12 posted. */
  void(VELLOMAR_ABI* cancelAlt2Fn)(uint64_t id);
  /* 16: as slot 1, with three words. */
  uint32_t(VELLOMAR_ABI* query3Fn)(uint32_t first, uint32_t second, uint32_t third);
} VellomarEventLoopTable;

/* The names without a prefix that hosts were written with. */
typedef VellomarNotify Notify;
typedef VellomarSendRequest SendRequest;
typedef VellomarLoopCallback LoopCallback;
typedef VellomarEventLoopTable EventLoopTable;

/* Opens the log and takes the host's entry points; any pointer may be null. `first`, `second` and
 * `kind` go to the log library as they are (CreateVellomarLogger). `loop` is copied. A second call
 * keeps all state and stores the new pointers. Always true. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedInit(VellomarSendRequest* request,
                                                       VellomarNotify* notify, void* host,
                                                       const VellomarEventLoopTable* loop,
                                                       const char* first, const char* second,
                                                       uint32_t kind);

/* Traced in the log and otherwise without effect. Always true. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedStart(void);
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedStop(void);

/* Removes the observer, stops the timers and forgets the host's pointers. Tasks that are still
 * posted may run until the library is unloaded. Always true. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedUninit(void);

/* Hands a response to a request (vellomar/command_records.h) to the plug-in, which copies what it
 * keeps. True even where nothing handles it. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedOnReceive(uint32_t id_low, uint32_t id_high,
                                                            void* payload);

/* Hands a delegate call to the plug-in, which has no handler for any. Always true. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedOnDelegate(uint32_t id_low, uint32_t id_high,
                                                             void* payload);

/* Sends a command. `payload` is its record; it is read before the call returns, and the four Sync
 * commands have written their answer into it by then. False when it is null or the id is unknown:
 * the result says that the command exists, not that it succeeded. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedCallEvent(uint32_t id_low, uint32_t id_high,
                                                            void* payload);

/* Releases what the plug-in keeps for the answer to the Sync command with this id. The next answer
 * to the same id releases it too. Always true. [loop thread] */
VELLOMAR_CONTROLBAR_API bool VELLOMAR_ABI ExportedCallDrop(uint32_t key_low, uint32_t key_high);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VELLOMAR_CONTROLBAR_H */
