// SPDX-License-Identifier: MIT
// How things look: colours, sizes in device-independent pixels, fonts, and the texts' way onto the
// screen.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>
#include <string>

namespace vellomar_widgets::qt::style {

inline constexpr QColor kBackground{0x1f, 0x23, 0x29};
inline constexpr QColor kBorder{0x44, 0x4b, 0x55};
inline constexpr QColor kLine{0x3a, 0x40, 0x49};
inline constexpr QColor kText{0xf0, 0xf2, 0xf5};
inline constexpr QColor kQuietText{0xae, 0xb6, 0xc2};
inline constexpr QColor kHover{255, 255, 255, 26};
inline constexpr QColor kPressed{255, 255, 255, 46};
inline constexpr QColor kOn{0x4c, 0x94, 0xff, 66};
inline constexpr QColor kAccent{0x4c, 0x94, 0xff};
inline constexpr QColor kCheckFill{0x22, 0x6b, 0xd6};  // dark enough for a white tick
inline constexpr QColor kGood{0x3e, 0xcb, 0x74};
inline constexpr QColor kFair{0xf5, 0xb8, 0x3d};
inline constexpr QColor kBad{0xf2, 0x55, 0x5a};
inline constexpr QColor kDanger{0xd3, 0x36, 0x3c};
inline constexpr QColor kDangerHover{0xd9, 0x3a, 0x40};
inline constexpr QColor kDangerPressed{0xb5, 0x2a, 0x30};
inline constexpr QColor kFocus{0xf0, 0xf2, 0xf5};
inline constexpr double kDisabledOpacity = 0.55;  // what is disabled stays readable

inline constexpr int kWindowRadius = 10;
inline constexpr int kButtonRadius = 7;
inline constexpr int kBarPadding = 6;
inline constexpr int kInfoHeight = 26;
inline constexpr int kButtonHeight = 54;
inline constexpr int kButtonGap = 2;
inline constexpr int kIcon = 22;
inline constexpr int kSmallIcon = 16;
inline constexpr int kExpandWidth = 18;

inline constexpr int kLabelFont = 11;  // pixel sizes
inline constexpr int kInfoFont = 12;
inline constexpr int kRowFont = 13;

QFont Font(int pixel_size, QFont::Weight weight = QFont::Normal);

// The text on one line, and no longer than anybody would read on a button.
QString Label(const std::string& utf8);
// The same, as long as somebody may read in a bubble.
QString Message(const std::string& utf8);

// As a tool-tip that is shown as it is, never taken for markup.
QString ToolTip(const QString& plain);

// The rounded dark panel behind every window.
void PaintPanel(QPainter& painter, const QRect& area);

void PaintRounded(QPainter& painter, const QRectF& area, double radius, const QColor& fill);

// The frame around what has the keyboard's focus, inside the area.
void PaintFocus(QPainter& painter, const QRectF& area);

}  // namespace vellomar_widgets::qt::style
