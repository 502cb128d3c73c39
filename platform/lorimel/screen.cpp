// SPDX-License-Identifier: MIT
#include "screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace lorimel_qt {
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

int Clamped(std::int64_t value, int least, int most) {
  return static_cast<int>(std::clamp<std::int64_t>(value, least, most));
}

}  // namespace

QRect DisplayArea(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) {
  constexpr int kFar = 100'000;
  const QRect wanted(Clamped(x, -kFar, kFar), Clamped(y, -kFar, kFar), Clamped(width, 0, kFar),
                     Clamped(height, 0, kFar));
  if (!wanted.isEmpty() && QGuiApplication::platformName() == QLatin1String("offscreen")) {
    return wanted;  // its one small screen is made up: the caller knows better
  }
  const QScreen* screen = ScreenOf(wanted);
  if (screen != nullptr) {
    return ToLogical(PixelGeometry(*screen) & wanted, *screen);
  }
  screen = QGuiApplication::primaryScreen();
  return screen != nullptr ? screen->availableGeometry() : wanted;
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

}  // namespace lorimel_qt
