/* SPDX-License-Identifier: MIT */
/* How tools and tests act as the user: the development builds of the widget library export one
 * function that the library in the field does not have.
 *
 *     const LorimelDriver* user = LorimelGetDriver();
 *     user->press(1001);
 *
 * Everything is [UI thread] unless marked: the thread that first called Lorimel::GetInstance. The
 * development builds have no thread of their own, so the host's loop lends them its thread with
 * `pump`. Actions call the plug-in back before they return. */
#ifndef VELLOMAR_LORIMEL_DRIVER_H
#define VELLOMAR_LORIMEL_DRIVER_H

#include <stdbool.h>
#include <stdint.h>

#include "vellomar/abi.h"

#if defined(_WIN32) && defined(VELLOMAR_LORIMEL_BUILD)
#  define VELLOMAR_LORIMEL_DRIVER_API __declspec(dllexport)
#elif defined(_WIN32)
#  define VELLOMAR_LORIMEL_DRIVER_API __declspec(dllimport)
#else
#  define VELLOMAR_LORIMEL_DRIVER_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* A copy of what the library holds for a button or a row. Texts are never null and stay valid until
 * the library is called again. */
typedef struct LorimelButton {
  int32_t key;
  bool hasExpand;
  const char* objectName;
  const char* text;
  const char* valueText;
  int32_t status;
  const char* toolTip;
  const char* secondToolTip;
  const char* iconPath;
  const char* subLabel;
  const char* extraText;
  int32_t groupValue;
} LorimelButton;

/* Called for every call that the plug-in makes: the member's name and, for SetEventKey, the record
 * (else null). [loop thread] */
typedef void VELLOMAR_ABI LorimelObserver(void* context, const char* member,
                                          const LorimelButton* record);

/* Called for what the user does with mouse and keyboard, before the plug-in learns of it, in the
 * driver's own words: "press", "open", "pick", "closeList" or "closeBar", with the key and, for
 * "pick", the value text of the row (else null). Not called for what the driver does. [UI thread]
 */
typedef void VELLOMAR_ABI LorimelUserObserver(void* context, const char* action, int32_t key,
                                              const char* value_text);

typedef struct LorimelDriver {
  const char* name; /* "qt" or "headless" */

  /* Handles what is waiting, then waits up to max_ms for more (0: does not wait). Returns early
   * after `wake`. */
  void(VELLOMAR_ABI* pump)(int32_t max_ms);
  void(VELLOMAR_ABI* wake)(void); /* [any thread] */

  /* One observer at most; null removes it. */
  void(VELLOMAR_ABI* observe)(LorimelObserver* observer, void* context);
  void(VELLOMAR_ABI* observeUser)(LorimelUserObserver* observer, void* context);

  /* Presses the button. False where a user could not: no bar, hidden, disabled, unknown. The button
   * turns its "on" bit first where it is one that toggles, as the library does for a user. */
  bool(VELLOMAR_ABI* press)(int32_t key);
  /* Opens the button's drop-down window, asking the plug-in for its rows, and returns their number;
   * -1 where a user could not open it. Takes the key of the button or of the window. */
  int32_t(VELLOMAR_ABI* open)(int32_t key);
  /* Picks a row of the open window: the first with this key and, unless null, this value text. */
  bool(VELLOMAR_ABI* pick)(int32_t key, const char* value_text);
  /* Closes the open window, if any. */
  void(VELLOMAR_ABI* closeList)(void);
  /* Closes the bar as the user does with the window's own means. */
  bool(VELLOMAR_ABI* closeBar)(void);

  /* What the library holds. False, or 0, where there is nothing. */
  bool(VELLOMAR_ABI* button)(int32_t key, LorimelButton* out);
  int32_t(VELLOMAR_ABI* rowCount)(void);
  bool(VELLOMAR_ABI* row)(int32_t index, LorimelButton* out);

  /* From now on the member of Lorimel (its name, not null) does nothing and answers false or 0, as
   * a library that fails, or obeys again. The callbacks of what is there already go on. */
  void(VELLOMAR_ABI* refuse)(const char* member, bool refused);

  /* Writes a PNG of the bar with what is open around it. False where there is no picture to take.
   */
  bool(VELLOMAR_ABI* screenshot)(const char* path);
} LorimelDriver;

/* Never null. The record belongs to the library. [any thread] */
VELLOMAR_LORIMEL_DRIVER_API const LorimelDriver* VELLOMAR_ABI LorimelGetDriver(void);

typedef const LorimelDriver* VELLOMAR_ABI LorimelGetDriverFunction(void);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif /* VELLOMAR_LORIMEL_DRIVER_H */
