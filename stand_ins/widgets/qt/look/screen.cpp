// SPDX-License-Identifier: MIT
#include "qt/look/screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace vellomar_widgets::qt {
namespace {

// Qt scales the screen's size and what is on it, and leaves its origin where it is.
QRect PixelGeometry(const QScreen& screen) {
  const QRect logical = screen.geometry();
  return {logical.topLeft(), logical.size() * screen.devicePixelRatio()};
}

QRect ToLogical(const QRect& pixels, const QScreen& screen) {
  const QPoint origin = screen.geometry().topLeft();
  const double ratio = screen.devicePixelRatio();
  return {origin + (pixels.topLeft() - origin) / ratio, pixels.size() / ratio};
}

// The screen that shows most of it; null where none does.
const QScreen* ScreenOf(const QRect& pixels) {
  const QScreen* best = nullptr;
  std::int64_t best_size = 0;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect common = PixelGeometry(*screen) & pixels;
    const std::int64_t size =
        common.isEmpty() ? 0 : std::int64_t{1} * common.width() * common.height();
    if (size > best_size) {
      best = screen;
      best_size = size;
    }
  }
  return best;
}

// Without a display and a description of one, Qt makes up a screen of 800 x 800: callers know
// better.
bool IsMadeUp(const QScreen& screen) {
  return QGuiApplication::platformName() == QLatin1String("offscreen") &&
         QGuiApplication::screens().size() == 1 && PixelGeometry(screen) == QRect(0, 0, 800, 800);
}

int Clamped(std::int64_t value, int least, int most) {
  return static_cast<int>(std::clamp<std::int64_t>(value, least, most));
}

}  // namespace

QRect DisplayPixels(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) {
  constexpr int kFar = 100'000;
  return {Clamped(x, -kFar, kFar), Clamped(y, -kFar, kFar), Clamped(width, 0, kFar),
          Clamped(height, 0, kFar)};
}

QRect DisplayArea(const QRect& pixels) {
  const QScreen* primary = QGuiApplication::primaryScreen();
  if (!pixels.isEmpty() && primary != nullptr && IsMadeUp(*primary)) {
    return ToLogical(pixels, *primary);
  }
  if (const QScreen* screen = ScreenOf(pixels); screen != nullptr) {
    return ToLogical(PixelGeometry(*screen) & pixels, *screen);
  }
  return primary != nullptr ? primary->availableGeometry() : pixels;
}

QRect AreaAt(const QPoint& point, const QRect& home) {
  const QScreen* screen = home.contains(point) ? nullptr : QGuiApplication::screenAt(point);
  if (screen == nullptr || IsMadeUp(*screen) || screen->geometry().intersects(home)) {
    return home;
  }
  return screen->availableGeometry();
}

QRect ToLogical(const QRect& pixels) {
  const QScreen* screen = ScreenOf(pixels);
  return screen != nullptr ? ToLogical(pixels, *screen) : pixels;
}

Qt::WindowFlags FloatingWindow() {
  // Qt raises every tool window that it shows, of which the offscreen platform complains each time.
  const bool is_offscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
  return (is_offscreen ? Qt::Window : Qt::Tool) | Qt::FramelessWindowHint |
         Qt::WindowStaysOnTopHint;
}

QRect ToPixels(const QRect& area) {
  const QScreen* screen = QGuiApplication::screenAt(area.center());
  if (screen == nullptr) {
    screen = QGuiApplication::primaryScreen();
  }
  if (screen == nullptr) {
    return area;
  }
  const QPoint origin = screen->geometry().topLeft();
  const double ratio = screen->devicePixelRatio();
  return {origin + (area.topLeft() - origin) * ratio, area.size() * ratio};
}

QRect MovedInto(QRect wanted, const QRect& area) {
  wanted.moveRight(std::min(wanted.right(), area.right()));
  wanted.moveBottom(std::min(wanted.bottom(), area.bottom()));
  wanted.moveLeft(std::max(wanted.left(), area.left()));
  wanted.moveTop(std::max(wanted.top(), area.top()));
  return wanted;
}

}  // namespace vellomar_widgets::qt
