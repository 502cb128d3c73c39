// SPDX-License-Identifier: MIT
// The colours that the user can sketch with.
//
//     PaintSwatch(painter, EventKey::SketchColor1, QRectF(0, 0, 22, 22));
#pragma once

#include <QPainter>

#include "vellomar/lorimel.h"

namespace vellomar_widgets::qt {

// A round sample of a colour; a crossed empty circle for no colour.
void PaintSwatch(QPainter& painter, VELLOMAR_LORIMEL::EventKey color, const QRectF& area);

}  // namespace vellomar_widgets::qt
