// SPDX-License-Identifier: MIT
// What kind of row a record of a drop-down window makes.
//
//     if (LookOf(row) == Look::kCheck) ...
#pragma once

#include "model/model.h"

namespace vellomar_widgets::qt {

enum class Look { kNone, kCaption, kSeparator, kSwatch, kRadio, kCheck, kPerson, kPlain };

// kNone: not shown.
Look LookOf(const OwnedButton& row);

// Whether something is painted before the text.
bool HasMark(const OwnedButton& row);
// Whether the row says that it leads further: the record after it is an arrow.
bool HasArrow(const Rows& rows, std::size_t index);
// Whether a radio row, a box or a tick is set.
bool IsChecked(const Rows& rows, std::size_t index);

}  // namespace vellomar_widgets::qt
