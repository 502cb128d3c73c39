// SPDX-License-Identifier: MIT
// Between the pixels of the screens, in which the plug-in speaks, and Qt's device-independent
// coordinates. Pixels are the windowing system's: the desktop's origin is 0, 0, a scale factor
// makes them no fewer.
//
//     const QRect area = DisplayArea({0, 0, 1920, 1080});   // where windows may be
//     const QRect pixels = ToPixels(widget->frameGeometry());
#pragma once

#include <QRect>
#include <Qt>
#include <cstdint>

namespace vellomar_widgets::qt {

// The rectangle as given, within what windowing systems can address.
QRect DisplayPixels(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height);

// The part of the display rectangle, given in pixels, that lies on a screen; a whole screen where
// it is empty or lies on none.
QRect DisplayArea(const QRect& pixels);

// `home` where it holds the point; else what windows may use of the screen that does.
QRect AreaAt(const QPoint& point, const QRect& home);

// Of a window that floats above the others, outside the task bar.
Qt::WindowFlags FloatingWindow();

QRect ToPixels(const QRect& area);
QRect ToLogical(const QRect& pixels);

// `wanted` moved into `area`; its top left corner is in `area` even where the rest does not fit.
QRect MovedInto(QRect wanted, const QRect& area);

}  // namespace vellomar_widgets::qt
