// SPDX-License-Identifier: MIT
// What the library knows and shows: the pushed records, the windows, and what happens on a click.
// A callback may call any member again, also to close the bar that was clicked: whoever calls one
// looks at `generation_` before going on with the bar that it had.
//
//     Ui* ui = CurrentUi("ShowControlbar");
//     ui->Create(std::move(request));
//     ui->Press(EventKey::Chat);
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "accessible.h"
#include "bar_window.h"
#include "bubble.h"
#include "catalog.h"
#include "list_window.h"

namespace lorimel_qt {

struct BarRequest {
  QString title;
  QRect display;  // in pixels, as given
  VELLOMAR_LORIMEL::CreatedCallback* on_created = nullptr;
  VELLOMAR_LORIMEL::ClosedCallback* on_closed = nullptr;
  Records records;
  bool simplify = false;
};

class Ui {
 public:
  Ui();
  ~Ui();
  Q_DISABLE_COPY_MOVE(Ui)

  bool Create(BarRequest request);
  bool Show(void* handle, bool show);
  bool Close();
  bool ShowSketchBar(bool show);
  bool CloseSketchBar();
  bool CloseSketchList();

  void SetEventCallback(VELLOMAR_LORIMEL::EventCallback* callback) { on_event_ = callback; }
  void SetShowWindowCallback(VELLOMAR_LORIMEL::ShowWindowCallback* callback) {
    on_show_window_ = callback;
  }
  bool SetRecord(const vellomar_widgets::OwnedButton& record);
  void SetDuration(std::uint64_t seconds);
  bool SetMicVolume(int percent);

  // In pixels; nothing where it is not shown.
  std::optional<QRect> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  std::uint64_t NativeHandle(void* handle) const;

  // At the button; where that is not shown, at `button_pixels` or, if that is empty, at the bar.
  // False where the bar is not shown.
  bool ShowBubble(VELLOMAR_LORIMEL::EventKey key, const BubbleContent& content,
                  const QRect& button_pixels);

  // What the user does. False, or -1, where a user could not.
  bool Press(VELLOMAR_LORIMEL::EventKey key);
  int Open(VELLOMAR_LORIMEL::EventKey opener);
  bool Pick(std::size_t row);
  void CloseList();

  const vellomar_widgets::OwnedButton* Record(VELLOMAR_LORIMEL::EventKey key) const;
  // Of the open drop-down window; null where there is none.
  const Rows* ListRows() const;
  bool IsBarVisible() const { return bar_ != nullptr && bar_->isVisible(); }
  // Those on the screen, from the lowest to the topmost.
  std::vector<QWidget*> Windows() const;
  // Whether the plug-in is being called right now.
  bool InCallback() const { return callback_depth_ > 0; }

 private:
  // Bars.
  BarWindow* MakeBar(std::span<const ButtonSpec> specs, BarWindow::Kind kind);
  BarWindow* BarWith(VELLOMAR_LORIMEL::EventKey key) const;
  void Refresh();
  void UpdateClock();
  void PlaceSketchBar();
  // The screens have changed.
  void FollowScreens();
  void WatchScreens();
  bool CanUse(VELLOMAR_LORIMEL::EventKey key) const;
  // Dragging the bar, and the confirmation of a question.
  bool PressOutsideButtons(VELLOMAR_LORIMEL::EventKey key);

  // Pop-up windows.
  Rows AskForRows(VELLOMAR_LORIMEL::EventKey opener);
  Rows PaletteRows() const;
  void ShowList(VELLOMAR_LORIMEL::EventKey opener, Rows rows);
  // The texts of the open list may have changed with those of the buttons.
  void RefreshList();
  void FollowList();
  // The user leaves a list or a question with the keyboard.
  void BackToBar(VELLOMAR_LORIMEL::EventKey opener);
  void ToggleList(VELLOMAR_LORIMEL::EventKey opener);
  void ReportInfoExpanded(bool expanded);
  void MarkPicked(ListWindow& list, std::size_t row, const vellomar_widgets::OwnedButton& picked);
  void PutBubble();
  void FollowBubble();
  void TranslateBubble(const vellomar_widgets::OwnedButton& before,
                       const vellomar_widgets::OwnedButton& after);
  void CloseBubble();

  // Calls of the plug-in.
  void Report(vellomar_widgets::OwnedButton event);
  void ReportCreated(QWidget& window, bool is_main);
  void ReportMoving();
  void ReportClosed(VELLOMAR_LORIMEL::ClosedCallback* callback, void* handle);

  // Takes the window out of the registry and deletes it as soon as nobody is in it.
  void Discard(QWidget* window);

  const AccessibilityFactory accessibility_;  // outlives the windows
  VELLOMAR_LORIMEL::EventCallback* on_event_ = nullptr;
  VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window_ = nullptr;
  int callback_depth_ = 0;

  unsigned generation_ = 0;  // of the bar: counts creations and closings
  BarRequest request_;       // of the open bar, its records kept up to date
  BarMode mode_;
  BarWindow* bar_ = nullptr;
  BarWindow* sketch_bar_ = nullptr;
  ListWindow* list_ = nullptr;
  VELLOMAR_LORIMEL::EventKey list_opener_ = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  Bubble* bubble_ = nullptr;
  bool bubble_asks_ = false;
  VELLOMAR_LORIMEL::EventKey bubble_button_ = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  QRect bubble_at_;  // the button that it points at
  BubbleContent bubble_content_;
  std::set<void*> handles_;  // of windows that the plug-in may ask about

  std::optional<std::uint64_t> duration_;  // in seconds, when `since_duration_` was started
  QElapsedTimer since_duration_;
  QTimer clock_timer_;
  QTimer list_timer_;  // gathers the changes of many records
};

}  // namespace lorimel_qt
