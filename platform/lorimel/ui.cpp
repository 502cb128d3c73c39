// SPDX-License-Identifier: MIT
// The bars, and the calls of the plug-in.
#include "ui.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "observer.h"
#include "screen.h"
#include "user_action.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

constexpr int kSketchBarDistance = 8;

// mm:ss, from an hour on h:mm:ss.
QString ClockText(std::uint64_t seconds) {
  constexpr std::uint64_t kMost = 1000ULL * 3600 - 1;
  const std::uint64_t shown = std::min(seconds, kMost);
  const auto two_digits = [](std::uint64_t number) {
    return QString::number(number).rightJustified(2, QLatin1Char('0'));
  };
  const QString tail = two_digits(shown / 60 % 60) + QLatin1Char(':') + two_digits(shown % 60);
  return shown < 3600 ? tail : QString::number(shown / 3600) + QLatin1Char(':') + tail;
}

}  // namespace

Ui::Ui() {
  clock_timer_.setInterval(1'000);
  QObject::connect(&clock_timer_, &QTimer::timeout, &clock_timer_, [this] { UpdateClock(); });
  list_timer_.setSingleShot(true);
  QObject::connect(&list_timer_, &QTimer::timeout, &list_timer_, [this] { RefreshList(); });
  WatchScreens();
}

Ui::~Ui() {
  for (QWidget* window : {static_cast<QWidget*>(bubble_), static_cast<QWidget*>(list_),
                          static_cast<QWidget*>(sketch_bar_), static_cast<QWidget*>(bar_)}) {
    delete window;
  }
}

BarWindow* Ui::MakeBar(std::span<const ButtonSpec> specs, BarWindow::Kind kind) {
  auto* bar = new BarWindow(specs, DisplayArea(request_.display), kind);
  bar->on_escape = [this] { CloseBubble(); };
  bar->on_press = [this](EventKey key) {
    if (CanUse(key) && (SpecOf(key) != nullptr || key == EventKey::InfoText)) {
      ObserveUser("press", key);
      Press(key);
    }
  };
  bar->on_expand = [this](EventKey key) {
    if (CanUse(key)) {
      const bool closes = list_ != nullptr && list_opener_ == key;
      ObserveUser(closes ? "closeList" : "open", key);
      ToggleList(key);
    }
  };
  return bar;
}

bool Ui::Create(BarRequest request) {
  if (bar_ != nullptr) {
    return false;
  }
  ++generation_;
  request_ = std::move(request);
  mode_ = {.simplify = request_.simplify, .collapsed = false};
  bar_ = MakeBar(MainButtons(), BarWindow::kWithInfoLine);
  bar_->setWindowTitle(request_.title);
  bar_->on_drag_start = [this] {
    CloseList();
    CloseBubble();
    ReportMoving();
  };
  // The host asks for the position when it is told: at the end it is the one that lasts.
  bar_->on_drag_end = [this] { ReportMoving(); };
  bar_->on_moved = [this] { PlaceSketchBar(); };
  bar_->on_close = [this] {
    ObserveUser("closeBar", EventKey::MainWindow);
    Close();
  };
  bar_->SetRecords(request_.records, mode_);
  ReportCreated(*bar_, true);
  return true;
}

void Ui::ReportMoving() {
  if (IsBarVisible()) {
    ObserveUser("press", EventKey::WidgetMoving);
    Press(EventKey::WidgetMoving);
  }
}

bool Ui::Show(void* handle, bool show) {
  if (bar_ == nullptr || handle != bar_) {
    return false;
  }
  if (!show) {
    CloseBubble();
    CloseList();
  }
  if (bar_ != nullptr && handle == bar_) {  // the plug-in was told of the list's closing
    bar_->setVisible(show);
  }
  return true;
}

bool Ui::Close() {
  if (bar_ == nullptr) {
    return false;
  }
  ++generation_;
  void* const bar = bar_;
  void* const list = list_;
  Discard(std::exchange(bubble_, nullptr));
  Discard(std::exchange(list_, nullptr));
  Discard(std::exchange(sketch_bar_, nullptr));
  Discard(std::exchange(bar_, nullptr));
  clock_timer_.stop();
  duration_.reset();
  // From here on the next bar may be created.
  auto* const on_closed = std::exchange(request_, {}).on_closed;
  if (list != nullptr) {
    ReportClosed(on_closed, list);
  }
  ReportClosed(on_closed, bar);
  return true;
}

bool Ui::ShowSketchBar(bool show) {
  if (bar_ == nullptr || (sketch_bar_ == nullptr && !show)) {
    return false;
  }
  if (sketch_bar_ == nullptr) {
    sketch_bar_ = MakeBar(SketchButtons(), BarWindow::kButtonsOnly);
    sketch_bar_->on_drag_start = [this] { CloseList(); };
    sketch_bar_->on_drag_end = [] {};
    sketch_bar_->on_close = [this] { CloseSketchBar(); };
    sketch_bar_->SetRecords(request_.records, {});
    PlaceSketchBar();
  }
  if (!show) {
    CloseSketchList();
  }
  if (sketch_bar_ != nullptr) {
    sketch_bar_->setVisible(show);
  }
  return true;
}

bool Ui::CloseSketchBar() {
  if (sketch_bar_ == nullptr) {
    return false;
  }
  CloseSketchList();
  Discard(std::exchange(sketch_bar_, nullptr));
  return true;
}

void Ui::PlaceSketchBar() {
  if (sketch_bar_ != nullptr) {
    const QRect bar = bar_->geometry();
    const int height = sketch_bar_->height();
    const int below = bar.bottom() + kSketchBarDistance;
    const bool fits = below + height <= bar_->Area().bottom();
    const int above = bar.top() - kSketchBarDistance - height;
    sketch_bar_->SetHome(bar_->Area());
    sketch_bar_->SetAnchor({bar.center().x(), fits ? below : above});
  }
}

void Ui::Refresh() {
  bar_->SetRecords(request_.records, mode_);
  if (sketch_bar_ != nullptr) {
    sketch_bar_->SetRecords(request_.records, {});
  }
  FollowList();
  FollowBubble();
}

bool Ui::SetRecord(const OwnedButton& record) {
  const auto found = request_.records.find(record.key);
  if (bar_ == nullptr || found == request_.records.end()) {
    return false;
  }
  const OwnedButton before = std::exchange(found->second, record);
  Refresh();
  if (before.text != record.text || before.tool_tip != record.tool_tip) {
    TranslateBubble(before, record);
  }
  if (list_ != nullptr && (before.text != record.text || record.key == list_opener_)) {
    list_timer_.start(0);
  }
  return true;
}

void Ui::WatchScreens() {
  const auto watch = [this](QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &clock_timer_, [this] { FollowScreens(); });
  };
  for (QScreen* screen : QGuiApplication::screens()) {
    watch(screen);
  }
  QObject::connect(qApp, &QGuiApplication::screenAdded, &clock_timer_,
                   [this, watch](QScreen* screen) {
                     watch(screen);
                     FollowScreens();
                   });
  QObject::connect(qApp, &QGuiApplication::screenRemoved, &clock_timer_,
                   [this] { FollowScreens(); });
}

void Ui::FollowScreens() {
  if (bar_ != nullptr) {
    CloseList();
    CloseBubble();
  }
  if (bar_ != nullptr) {  // the plug-in was told of the list's closing
    bar_->SetHome(DisplayArea(request_.display));
    PlaceSketchBar();
  }
}

void Ui::SetDuration(std::uint64_t seconds) {
  if (bar_ == nullptr) {
    return;
  }
  duration_ = seconds;
  since_duration_.start();
  clock_timer_.start();
  UpdateClock();
}

void Ui::UpdateClock() {
  if (bar_ != nullptr && duration_) {
    const auto passed = static_cast<std::uint64_t>(since_duration_.elapsed() / 1'000);
    bar_->SetClock(ClockText(*duration_ > UINT64_MAX - passed ? *duration_ : *duration_ + passed));
  }
}

bool Ui::SetMicVolume(int percent) {
  if (bar_ == nullptr) {
    return false;
  }
  bar_->SetMicVolume(std::clamp(percent, 0, 100));
  return true;
}

const OwnedButton* Ui::Record(EventKey key) const {
  const auto found = request_.records.find(key);
  return found != request_.records.end() ? &found->second : nullptr;
}

BarWindow* Ui::BarWith(EventKey key) const {
  for (BarWindow* bar : {bar_, sketch_bar_}) {
    const bool is_window = key == EventKey::MainWindow && bar == bar_;
    if (bar != nullptr && bar->isVisible() && (is_window || bar->AreaOf(key))) {
      return bar;
    }
  }
  return nullptr;
}

std::optional<QRect> Ui::AreaOf(EventKey key) const {
  if (list_ != nullptr && SpecOf(key) == nullptr &&
      vellomar_widgets::WindowOf(list_opener_) == key) {
    return ToPixels(list_->geometry());
  }
  const BarWindow* bar = BarWith(key);
  if (bar == nullptr) {
    return std::nullopt;
  }
  return ToPixels(key == EventKey::MainWindow ? bar->geometry() : *bar->AreaOf(key));
}

std::uint64_t Ui::NativeHandle(void* handle) const {
  if (!handles_.contains(handle)) {
    return 0;
  }
  return std::uint64_t{static_cast<QWidget*>(handle)->winId()};
}

std::vector<QWidget*> Ui::Windows() const {
  std::vector<QWidget*> windows;
  for (QWidget* window : {static_cast<QWidget*>(bar_), static_cast<QWidget*>(sketch_bar_),
                          static_cast<QWidget*>(list_), static_cast<QWidget*>(bubble_)}) {
    if (window != nullptr && window->isVisible()) {
      windows.push_back(window);
    }
  }
  return windows;
}

bool Ui::CanUse(EventKey key) const {
  const OwnedButton* record = Record(key);
  return record != nullptr && vellomar_widgets::CanPress(*record) && BarWith(key) != nullptr;
}

bool Ui::PressOutsideButtons(EventKey key) {
  if (key == EventKey::LeaveSubRoom && bubble_ != nullptr && bubble_asks_) {
    CloseBubble();
    OwnedButton event;
    event.key = key;
    Report(event);
    return true;
  }
  if (key == EventKey::WidgetMoving && IsBarVisible() && Record(key) != nullptr) {
    Report(*Record(key));
    return true;
  }
  return false;
}

bool Ui::Press(EventKey key) {
  const ButtonSpec* spec = SpecOf(key);
  if (spec == nullptr && key != EventKey::InfoText) {
    return PressOutsideButtons(key);
  }
  const bool opens = spec != nullptr && (spec->traits & kOpensOnPress) != 0;
  if (CanUse(key) && list_ != nullptr && !(opens && list_opener_ == key)) {
    CloseList();  // as every click elsewhere does
  }
  if (!CanUse(key)) {
    return false;
  }
  OwnedButton& record = request_.records.at(key);
  record = vellomar_widgets::AfterPress(record);
  if (key == EventKey::ControlbarSwitch) {
    mode_.collapsed = !mode_.collapsed;
  }
  Refresh();
  const unsigned generation = generation_;
  Report(record);
  if (opens && generation == generation_ && BarWith(key) != nullptr) {
    ToggleList(key);
  }
  return true;
}

// By value: the plug-in may push the same button's record meanwhile.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Ui::Report(OwnedButton event) {
  if (on_event_ != nullptr) {
    VELLOMAR_LORIMEL::BtnParams params = event.Params();
    ++callback_depth_;
    on_event_(params);
    --callback_depth_;
  }
}

void Ui::ReportCreated(QWidget& window, bool is_main) {
  handles_.insert(&window);
  if (request_.on_created != nullptr) {
    const QRect area = ToPixels(window.geometry());
    ++callback_depth_;
    request_.on_created(&window, area.x(), area.y(), area.width(), area.height(), is_main,
                        std::uint64_t{window.winId()});
    --callback_depth_;
  }
}

void Ui::ReportClosed(VELLOMAR_LORIMEL::ClosedCallback* callback, void* handle) {
  if (callback != nullptr) {
    ++callback_depth_;
    callback(handle);
    --callback_depth_;
  }
}

void Ui::Discard(QWidget* window) {
  if (window != nullptr) {
    handles_.erase(window);
    window->hide();
    window->deleteLater();
  }
}

}  // namespace lorimel_qt
