// SPDX-License-Identifier: MIT
// The widget library without a screen, as tests see it: what the plug-in has called and pushed, and
// what the library answers. How the user acts is in vellomar/lorimel_driver.h.
//
//     Headless& library = TheHeadless();
//     library.Reset();
//     library.behaviour.closed_later = true;
//     ... the plug-in shows, then closes the bar ...
//     EXPECT_EQ(library.Calls().back(), (Call{"CloseSharedControlbar", ""}));
//     library.DeliverPending();
//
// Everything runs on the one thread that calls Lorimel. Callbacks may call any member again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "owned_button.h"
#include "vellomar/lorimel.h"
#include "vellomar/lorimel_driver.h"

namespace vellomar_widgets {

struct Rectangle {
  int x = 0, y = 0, width = 0, height = 0;

  bool operator==(const Rectangle&) const = default;
};

// What the library does when it is called. A refusing member answers false and does nothing else
// but keep the call.
struct Behaviour {
  bool refuse_callbacks = false;  // SetControlbarEventCallback, SetShowWindowCallback
  bool refuse_create = false;
  bool refuse_show = false;
  bool refuse_close = false;
  bool refuse_position = false;
  bool refuse_sketch = false;  // all three members
  bool refuse_confirm_tip = false;
  bool created_later = false;  // the main window's created callback comes from DeliverPending
  bool closed_later = false;   // its closed callback, too
  std::uint64_t native_handle = 4711;
  Rectangle bar = {100, 20, 1000, 60};  // of it every visible button has a rectangle
};

// A call of a member. The arguments as text: "1001, \"Mute\", true, 3000, false".
struct Call {
  std::string member;
  std::string arguments;

  bool operator==(const Call&) const = default;
};
VELLOMAR_LORIMEL_DRIVER_API std::ostream& operator<<(std::ostream& out, const Call& call);

// A call of SetEventKey: the record as it was then, and where it is.
struct Push {
  OwnedButton copy;
  const VELLOMAR_LORIMEL::BtnParams* record = nullptr;
};

// A call of CreateControlbar.
struct Creation {
  std::string title;
  std::int64_t x = 0, y = 0, width = 0, height = 0;
  VELLOMAR_LORIMEL::CreatedCallback* on_created = nullptr;
  VELLOMAR_LORIMEL::ClosedCallback* on_closed = nullptr;
  bool unused = false;
  std::vector<OwnedButton> records;
  const VELLOMAR_LORIMEL::BtnParams* params = nullptr;
  int type = 0;
  bool simplify = false;
};

struct ButtonTip {
  VELLOMAR_LORIMEL::EventKey key = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  std::string text;
  bool a = false;
  int b = 0;
  bool c = false;
};

struct ChatTip {
  VELLOMAR_LORIMEL::EventKey key = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  std::string avatar_path;
  std::string sender_name;
  std::string text;
  std::string participant_key;
};

struct ConfirmTip {
  VELLOMAR_LORIMEL::EventKey key = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  std::string title;
  std::string text;
  std::string confirm_text;
  Rectangle button;
};

class VELLOMAR_LORIMEL_DRIVER_API Headless {
 public:
  Behaviour behaviour;

  // What the plug-in did since the last Reset, oldest first.
  const std::vector<Call>& Calls() const { return calls_; }
  std::size_t CallCount(const std::string& member) const;
  const std::vector<Creation>& Creations() const { return creations_; }
  const std::vector<Push>& Pushed() const { return pushed_; }
  std::vector<Push> Pushed(VELLOMAR_LORIMEL::EventKey key) const;
  const std::vector<ButtonTip>& ButtonTips() const { return button_tips_; }
  const std::vector<ChatTip>& ChatTips() const { return chat_tips_; }
  const std::vector<ConfirmTip>& ConfirmTips() const { return confirm_tips_; }
  std::optional<std::uint64_t> Duration() const { return duration_; }
  std::optional<int> MicVolume() const { return mic_volume_; }

  // What there is now. The handle is null where there is no bar.
  void* BarHandle() const { return bar_ ? bar_->handle : nullptr; }
  bool IsBarVisible() const { return bar_ && bar_->visible; }
  bool IsSketchBarVisible() const { return bar_ && bar_->sketch_visible; }
  std::optional<Rectangle> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  // The library's copy of a record, null where it has none.
  const OwnedButton* Button(VELLOMAR_LORIMEL::EventKey key) const;
  // The rows of the open drop-down window, null where none is open.
  const std::vector<OwnedButton>* Rows() const { return list_ ? &list_->rows : nullptr; }

  // Forgets everything, behaviour and callbacks too. To be called before what the plug-in has
  // handed over is gone.
  void Reset();
  // Makes the callbacks that `created_later` and `closed_later` have put off.
  void DeliverPending();

  // Calls the plug-in with exactly this, whatever is shown. False, or null, without a callback.
  bool Fire(VELLOMAR_LORIMEL::BtnParams& params);
  VELLOMAR_LORIMEL::BtnParams* Ask(VELLOMAR_LORIMEL::EventKey window, int& count);

  // Reads every text that the plug-in must still keep: those of the records that the bar was last
  // created with, and of the last list of every window. Answers their total length, so that the
  // reads are not optimised away; what is no longer there is for the address sanitizer to find.
  std::size_t ReadEveryText() const;

  // What the user does, as in vellomar/lorimel_driver.h.
  bool Press(VELLOMAR_LORIMEL::EventKey key);
  int Open(VELLOMAR_LORIMEL::EventKey key);
  bool Pick(VELLOMAR_LORIMEL::EventKey key, const char* value_text);
  void CloseList();
  bool CloseBar();
  void Observe(LorimelObserver* observer, void* context);

 private:
  friend class VELLOMAR_LORIMEL::Lorimel;

  struct Bar {
    void* handle = nullptr;
    VELLOMAR_LORIMEL::CreatedCallback* on_created = nullptr;
    VELLOMAR_LORIMEL::ClosedCallback* on_closed = nullptr;
    bool simplify = false;
    bool collapsed = false;
    bool visible = false;
    bool sketch_visible = false;
    bool asks = false;  // a confirm tip is open
  };
  struct List {
    void* handle = nullptr;
    VELLOMAR_LORIMEL::EventKey opener = VELLOMAR_LORIMEL::EventKey::GroupHeader;
    std::vector<OwnedButton> rows;
  };
  // An array that the plug-in handed over and keeps.
  struct Kept {
    const VELLOMAR_LORIMEL::BtnParams* records = nullptr;
    int count = 0;
  };

  // The members of Lorimel.
  void Keep(const char* member, std::string arguments, const OwnedButton* record = nullptr);
  bool Create(Creation creation);
  bool Show(void* handle, bool show);
  bool Close();
  bool SetRecord(const VELLOMAR_LORIMEL::BtnParams& params);
  bool ShowSketch(bool show);
  bool ClearSketchList();
  bool CloseSketch();

  void* NewHandle();
  void Later(bool later, std::function<void()> callback);
  void ShowBubble(bool asks);  // which replaces the one that is open
  static bool IsOnSketchBar(VELLOMAR_LORIMEL::EventKey key);
  bool IsOnABar(VELLOMAR_LORIMEL::EventKey key) const;
  bool PressOutsideButtons(VELLOMAR_LORIMEL::EventKey key);
  bool CanUse(VELLOMAR_LORIMEL::EventKey key) const;
  std::vector<OwnedButton> RowsOf(VELLOMAR_LORIMEL::EventKey opener);
  void ReportInfoExpanded(bool expanded);
  bool Report(OwnedButton event);

  std::vector<Call> calls_;
  std::vector<Creation> creations_;
  std::vector<Push> pushed_;
  std::vector<ButtonTip> button_tips_;
  std::vector<ChatTip> chat_tips_;
  std::vector<ConfirmTip> confirm_tips_;
  std::optional<std::uint64_t> duration_;
  std::optional<int> mic_volume_;

  VELLOMAR_LORIMEL::EventCallback* on_event_ = nullptr;
  VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window_ = nullptr;
  LorimelObserver* observer_ = nullptr;
  void* observer_context_ = nullptr;

  std::map<VELLOMAR_LORIMEL::EventKey, OwnedButton> buttons_;
  std::optional<Bar> bar_;
  std::optional<List> list_;
  Kept kept_records_;
  std::map<VELLOMAR_LORIMEL::EventKey, Kept> kept_lists_;  // by window
  std::deque<std::function<void()>> pending_;
  std::deque<char> handles_;  // a window's handle is the address of one of these
};

VELLOMAR_LORIMEL_DRIVER_API Headless& TheHeadless();

}  // namespace vellomar_widgets
