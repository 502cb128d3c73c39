// SPDX-License-Identifier: MIT
// The widget library, `vellomar-lorimel`: it draws the control bar, its drop-down windows and the
// sketch bar, and calls back when the user acts. The plug-in describes every button with a
// BtnParams record; the library decides how it looks.
//
// Thread: the plug-in calls the members on the host's loop thread. The library calls back on its
// own user-interface thread, and only while the loop thread waits inside one of its members or does
// not call the plug-in at all.
//
// Memory: a record and its texts belong to whoever passes them. The plug-in keeps a text valid
// until it changes the same record again; a list that the show-window callback returned is valid
// until the same list is asked for again.
//
// Errors: a member that returns false has changed nothing. Nothing is thrown.
#pragma once

#include <stdint.h>

#include "vellomar/abi.h"
#include "vellomar/record_layout.h"

// On Windows the library follows the Microsoft C++ ABI. A library built with MinGW exports the
// members under that ABI's names through a .def file, so nothing is marked here.
#if defined(_WIN32) && defined(VELLOMAR_LORIMEL_BUILD) && defined(__MINGW32__)
#  define VELLOMAR_LORIMEL_API
#elif defined(_WIN32) && defined(VELLOMAR_LORIMEL_BUILD)
#  define VELLOMAR_LORIMEL_API __declspec(dllexport)
#elif defined(_WIN32)
#  define VELLOMAR_LORIMEL_API __declspec(dllimport)
#else
#  define VELLOMAR_LORIMEL_API __attribute__((visibility("default")))
#endif

namespace VELLOMAR_LORIMEL {

// Buttons and list items. The numbers are the widget library's; docs/keys.md says what each is.
enum class EventKey : int32_t {
#define VELLOMAR_KEY(number, name, meaning) name = (number),
#include "vellomar/event_key_table.def"
};

// The keys of the records that the bar is created with, named or not.
inline constexpr int32_t kFirstKey = 1000;
inline constexpr int32_t kLastKey = 1091;
inline constexpr int32_t kKeyCount = kLastKey - kFirstKey + 1;

// Bits of BtnParams::status.
inline constexpr int32_t kStatusOn = 1;  // on, checked, selected
inline constexpr int32_t kStatusHidden = 2;
inline constexpr int32_t kStatusDisabled = 4;
inline constexpr int32_t kStatusUnread = 8;  // ControlbarSwitch: chat messages wait

// Whole values of BtnParams::status with a meaning of their own.
inline constexpr int32_t kStatusLoading = 20;            // Annotate: the sketch bar loads
inline constexpr int32_t kStatusDeviceMuted = 32;        // MuteAudio, MuteCamera: status 0
inline constexpr int32_t kStatusDeviceUnavailable = 68;  // the same: status 2

// One button of a bar or one row of a list. 56 bytes in the 32-bit interface.
struct BtnParams {
  EventKey key;
  bool hasExpand;          // the button has a part that opens a drop-down window
  const char* objectName;  // the item's style name ("CameraItem"); null for buttons of the bar
  const char* text;        // the label; null: none
  uint32_t reserved[2];    // zero
  const char* valueText;  // of an item, what identifies it (a device id); of a button, its own text
  int32_t status;         // kStatus...
  const char* toolTip;
  const char* secondToolTip;  // InfoText only: of the part that opens the drop-down window
  const char* iconPath;       // the icon's file name; null: the icon that goes with the key
  const char* subLabel;       // Chat: the number of unread messages
  const char* extraText;
  int32_t groupValue;  // radio items: the index of the checked one in their group
};
VELLOMAR_FIXED_OFFSET(BtnParams, hasExpand, 4)
VELLOMAR_FIXED_OFFSET(BtnParams, objectName, 8)
VELLOMAR_FIXED_OFFSET(BtnParams, text, 12)
VELLOMAR_FIXED_OFFSET(BtnParams, reserved, 16)
VELLOMAR_FIXED_OFFSET(BtnParams, valueText, 24)
VELLOMAR_FIXED_OFFSET(BtnParams, status, 28)
VELLOMAR_FIXED_OFFSET(BtnParams, toolTip, 32)
VELLOMAR_FIXED_OFFSET(BtnParams, secondToolTip, 36)
VELLOMAR_FIXED_OFFSET(BtnParams, iconPath, 40)
VELLOMAR_FIXED_OFFSET(BtnParams, subLabel, 44)
VELLOMAR_FIXED_OFFSET(BtnParams, extraText, 48)
VELLOMAR_FIXED_OFFSET(BtnParams, groupValue, 52)
VELLOMAR_FIXED_SIZE(BtnParams, 56)

// A bubble with a chat message.
struct TipWindowInfo {
  const char* avatarPath;  // empty: none
  const char* senderName;
  const char* text;
  const char* participantKey;
};

// A bubble that asks for confirmation, and the rectangle of the button that it belongs to.
struct ConfirmTipWindowInfo {
  const char* title;
  const char* text;
  const char* confirmText;
  int x, y, width, height;
};

// The bar was created, or (isMain false) a pop-up window of it. Handles are the library's own.
typedef void VELLOMAR_ABI CreatedCallback(void* handle, int x, int y, int width, int height,
                                          bool isMain, uint64_t id);
typedef void VELLOMAR_ABI ClosedCallback(void* handle);
// The user pressed a button or picked an item. The record belongs to the library.
typedef void VELLOMAR_ABI EventCallback(BtnParams& params);
// Returns the rows of the drop-down window of `key` and sets `count`; null where it has none.
typedef BtnParams* VELLOMAR_ABI ShowWindowCallback(EventKey key, int& count);

class VELLOMAR_LORIMEL_API Lorimel {
 public:
  // The one instance, created at the first call. It belongs to the library.
  static Lorimel* GetInstance();

  // Creates the bar for the display rectangle x, y, width, height. `on_created` has been called for
  // the main window when it returns true. `params` are the records from kFirstKey on, copied with
  // their texts before it returns. `type` is the meeting sub type, `simplify` asks for a bar with
  // the most needed buttons only. The boolean before `params` is not used.
  bool CreateControlbar(const char* title, int64_t x, int64_t y, int64_t width, int64_t height,
                        CreatedCallback* on_created, ClosedCallback* on_closed, bool unused,
                        BtnParams* params, int params_count, int type, bool simplify);
  bool ShowControlbar(void*& handle, bool show);
  // The closed callback comes during the call or later.
  bool CloseSharedControlbar();

  bool SetControlbarEventCallback(EventCallback* callback);
  bool SetShowWindowCallback(ShowWindowCallback* callback);

  // Takes over the changed record of one button, on whichever bar it is.
  bool SetEventKey(BtnParams& params);
  // The rectangle on the screen, in physical pixels whatever the scale factor, of a button, of the
  // bar (MainWindow) or of the open drop-down window, where it has a key of its own
  // (HostControlWindow). False, and the numbers untouched, where it is not shown.
  bool GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height);

  void SetMeetingDuration(uint64_t seconds);  // the clock runs on from here
  bool SetMicVolume(int volume);              // 0 to 100

  // A bubble at the button. The plug-in passes `a`, `b` and `c` on from the host unchanged; the
  // library decides what they mean. In the development builds `a` is whether the bubble stays until
  // the user closes it, `b` how many milliseconds it stays otherwise (5000 where it is 0 or less),
  // and `c` whether it is a warning.
  void ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c);
  void ShowControlbarButtonTipByInfo(EventKey key, TipWindowInfo& info);
  bool ShowControlbarButtonConfirmTipByInfo(EventKey key, ConfirmTipWindowInfo& info);

  // The operating system's handle of a window of the library; 0 where there is none.
  uint64_t GetWidgetNativeHandle(void*& handle);

  bool ShowSketchControlbar(bool show);
  bool ClearSketchDropDown();
  bool CloseSketchControlbar();
};

}  // namespace VELLOMAR_LORIMEL
