// SPDX-License-Identifier: MIT
// A person: the picture, round, or the name's initial where there is none.
//
//     PaintAvatar(painter, QRectF(0, 0, 34, 34), path, name);
#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

namespace vellomar_widgets::qt {

// `path` names an image file; empty, missing or unreadable ones give the initial. Pictures are read
// once, at the size and sharpness in which they are painted, and again when the file changes.
void PaintAvatar(QPainter& painter, const QRectF& area, const QString& path, const QString& name);

// The background of an initial, dark enough for white.
QColor AvatarColor(const QString& name);

}  // namespace vellomar_widgets::qt
