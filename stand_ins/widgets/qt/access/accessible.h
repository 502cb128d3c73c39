// SPDX-License-Identifier: MIT
// What assistive technology is told of the bars, their controls, the drop-down windows and the
// bubbles. Qt knows the labels, push buttons and fields in them by itself.
//
//     const AccessibilityFactory factory;   // for as long as there are windows
#pragma once

#include <Qt>
#include <QtGlobal>

namespace vellomar_widgets::qt {

class AccessibilityFactory {
 public:
  AccessibilityFactory();
  ~AccessibilityFactory();
  Q_DISABLE_COPY_MOVE(AccessibilityFactory)
};

}  // namespace vellomar_widgets::qt
