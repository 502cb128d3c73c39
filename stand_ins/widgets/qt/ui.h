// SPDX-License-Identifier: MIT
// The model's view on Qt: the windows, where they are, and what the user does with mouse and
// keyboard, which goes to the model.
//
//     Ui* ui = CurrentUi("ShowControlbar");
//     ui->model.Show(handle, true);
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <optional>
#include <set>
#include <vector>

#include "model/model.h"
#include "qt/access/accessible.h"
#include "qt/bar/bar_window.h"
#include "qt/bubble.h"
#include "qt/list/list_window.h"

namespace vellomar_widgets::qt {

class Ui final : public View {
 public:
  Ui();
  ~Ui() override;
  Q_DISABLE_COPY_MOVE(Ui)

  Model model{*this};

  // Those on the screen, from the lowest to the topmost.
  std::vector<QWidget*> Windows() const;

  Window MakeBar() override;
  void ShowBar(bool show) override { bar_->setVisible(show); }
  void CloseBar() override;
  void ShowSketchBar(bool show) override;
  void CloseSketchBar() override;
  void RefreshBars() override;
  Window MakeList() override;
  void RefreshList() override;
  void CloseList() override;
  void RefreshListSoon() override { list_timer_.start(0); }
  void MakeBubble() override;
  void CloseBubble() override;
  void StartClock(std::uint64_t seconds) override;
  void SetMicVolume(int percent) override { bar_->SetMicVolume(percent); }
  std::optional<Rectangle> AreaOf(VELLOMAR_LORIMEL::EventKey key) const override;
  Rectangle ListArea() const override;
  std::uint64_t NativeHandle(void* handle) const override;

 private:
  // Bars.
  BarWindow* MakeBarWindow(std::span<const ButtonSpec> specs, BarWindow::Kind kind);
  BarWindow* BarWith(VELLOMAR_LORIMEL::EventKey key) const;
  void UpdateClock();
  void PlaceSketchBar();
  void FollowScreens();  // which have changed
  void WatchScreens();
  void ReportMoving();
  // In Qt's coordinates, where the bar may be.
  QRect Home() const;

  // Pop-up windows.
  void OnPick(std::size_t row);
  void FollowList();
  void FollowBubble();
  // The user leaves a list or a question with the keyboard.
  void BackToBar(VELLOMAR_LORIMEL::EventKey opener);

  Window Register(QWidget& window);
  // Takes the window out of the registry and deletes it as soon as nobody is in it.
  void Discard(QWidget* window);

  const AccessibilityFactory accessibility_;  // outlives the windows
  BarWindow* bar_ = nullptr;
  BarWindow* sketch_bar_ = nullptr;
  ListWindow* list_ = nullptr;
  VELLOMAR_LORIMEL::EventKey list_opener_ = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  bool picked_by_key_ = false;
  BubbleWindow* bubble_ = nullptr;
  QRect bubble_at_;          // the button that it points at
  std::set<void*> handles_;  // of windows that the plug-in may ask about

  std::optional<std::uint64_t> duration_;  // in seconds, when `since_duration_` was started
  QElapsedTimer since_duration_;
  QTimer clock_timer_;
  QTimer list_timer_;  // gathers the changes of many records
};

}  // namespace vellomar_widgets::qt
