// SPDX-License-Identifier: MIT
// The bars.
#include "qt/ui.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "model/library.h"
#include "qt/look/screen.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

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

Rectangle PixelsOf(const QRect& area) {
  const QRect pixels = ToPixels(area);
  return {pixels.x(), pixels.y(), pixels.width(), pixels.height()};
}

}  // namespace

Ui::Ui() {
  clock_timer_.setInterval(1'000);
  QObject::connect(&clock_timer_, &QTimer::timeout, &clock_timer_, [this] { UpdateClock(); });
  list_timer_.setSingleShot(true);
  QObject::connect(&list_timer_, &QTimer::timeout, &list_timer_, [this] { model.RefreshList(); });
  WatchScreens();
}

Ui::~Ui() {
  for (QWidget* window : {static_cast<QWidget*>(bubble_), static_cast<QWidget*>(list_),
                          static_cast<QWidget*>(sketch_bar_), static_cast<QWidget*>(bar_)}) {
    delete window;
  }
}

BarWindow* Ui::MakeBarWindow(std::span<const ButtonSpec> specs, BarWindow::Kind kind) {
  auto* bar = new BarWindow(specs, Home(), kind);
  bar->on_escape = [this] { model.CloseBubble(); };
  bar->on_press = [this](EventKey key) {
    if (model.CanUse(key) && (SpecOf(key) != nullptr || key == EventKey::InfoText)) {
      ObserveUser("press", key);
      model.Press(key);
    }
  };
  bar->on_expand = [this](EventKey key) {
    if (model.CanUse(key)) {
      const bool closes = list_ != nullptr && list_opener_ == key;
      ObserveUser(closes ? "closeList" : "open", key);
      model.ToggleList(key);
    }
  };
  return bar;
}

QRect Ui::Home() const {
  const auto& request = model.Request();
  return DisplayArea(DisplayPixels(request.x, request.y, request.width, request.height));
}

Window Ui::MakeBar() {
  bar_ = MakeBarWindow(MainButtons(), BarWindow::kWithInfoLine);
  bar_->setWindowTitle(style::Label(model.Request().title));
  bar_->on_drag_start = [this] {
    model.CloseList();
    model.CloseBubble();
    ReportMoving();
  };
  // The host asks for the position when it is told: at the end it is the one that lasts.
  bar_->on_drag_end = [this] { ReportMoving(); };
  bar_->on_moved = [this] { PlaceSketchBar(); };
  bar_->on_close = [this] {
    ObserveUser("closeBar", EventKey::MainWindow);
    model.Close();
  };
  RefreshBars();
  return Register(*bar_);
}

void Ui::ReportMoving() {
  if (model.IsBarVisible()) {
    ObserveUser("press", EventKey::WidgetMoving);
    model.Press(EventKey::WidgetMoving);
  }
}

void Ui::CloseBar() {
  Discard(std::exchange(bubble_, nullptr));
  Discard(std::exchange(list_, nullptr));
  Discard(std::exchange(sketch_bar_, nullptr));
  Discard(std::exchange(bar_, nullptr));
  clock_timer_.stop();
  duration_.reset();
}

void Ui::ShowSketchBar(bool show) {
  if (sketch_bar_ == nullptr) {
    sketch_bar_ = MakeBarWindow(SketchButtons(), BarWindow::kButtonsOnly);
    sketch_bar_->on_drag_start = [this] { model.CloseList(); };
    sketch_bar_->on_drag_end = [] {};
    sketch_bar_->on_close = [this] { model.CloseSketchBar(); };
    sketch_bar_->SetRecords(model.Request().records, {});
    PlaceSketchBar();
  }
  sketch_bar_->setVisible(show);
}

void Ui::CloseSketchBar() {
  Discard(std::exchange(sketch_bar_, nullptr));
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

void Ui::RefreshBars() {
  bar_->SetRecords(model.Request().records, model.Mode());
  if (sketch_bar_ != nullptr) {
    sketch_bar_->SetRecords(model.Request().records, {});
  }
  FollowList();
  FollowBubble();
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
    model.CloseList();
    model.CloseBubble();
  }
  if (bar_ != nullptr) {  // the plug-in was told of the list's closing
    bar_->SetHome(Home());
    PlaceSketchBar();
  }
}

void Ui::StartClock(std::uint64_t seconds) {
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

BarWindow* Ui::BarWith(EventKey key) const {
  if (!model.IsShown(key)) {
    return nullptr;
  }
  return IsOnSketchBar(key) ? sketch_bar_ : bar_;
}

std::optional<Rectangle> Ui::AreaOf(EventKey key) const {
  const BarWindow* bar = BarWith(key);
  const auto area = bar == nullptr                ? std::nullopt
                    : key == EventKey::MainWindow ? std::optional(bar->geometry())
                                                  : bar->AreaOf(key);
  return area ? std::optional(PixelsOf(*area)) : std::nullopt;
}

Rectangle Ui::ListArea() const {
  return PixelsOf(list_->geometry());
}

std::uint64_t Ui::NativeHandle(void* handle) const {
  return handles_.contains(handle) ? std::uint64_t{static_cast<QWidget*>(handle)->winId()} : 0;
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

Window Ui::Register(QWidget& window) {
  handles_.insert(&window);
  return {&window, PixelsOf(window.geometry()), std::uint64_t{window.winId()}};
}

void Ui::Discard(QWidget* window) {
  if (window != nullptr) {
    handles_.erase(window);
    window->hide();
    window->deleteLater();
  }
}

}  // namespace vellomar_widgets::qt
