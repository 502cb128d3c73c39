// SPDX-License-Identifier: MIT
// The icons: SVG pictures in the library's resources, painted as vectors so that they are sharp at
// any scale.
//
//     PaintIcon(painter, IconFor(record), QRectF(0, 0, 22, 22));
#pragma once

#include <QPainter>
#include <QString>

#include "model/owned_button.h"

namespace vellomar_widgets::qt {

// The name of the icon that goes with the record's icon path, else with its key and state; empty
// where there is none.
QString IconFor(const OwnedButton& record);

// Mirrors the icons that have a direction where the text runs from right to left. Paints nothing
// for a name that is not in the resources.
void PaintIcon(QPainter& painter, const QString& name, const QRectF& area,
               Qt::LayoutDirection direction = Qt::LeftToRight);

}  // namespace vellomar_widgets::qt
