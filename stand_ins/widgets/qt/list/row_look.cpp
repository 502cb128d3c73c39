// SPDX-License-Identifier: MIT
#include "qt/list/row_look.h"

#include <algorithm>

#include "model/catalog.h"
#include "model/user_action.h"
#include "qt/look/icons.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr char kArrowName[] = "icon_right_outlined";

}  // namespace

Look LookOf(const OwnedButton& row) {
  const bool is_arrow = row.key == EventKey::Separator && row.object_name == kArrowName;
  if (row.Has(VELLOMAR_LORIMEL::kStatusHidden) || is_arrow) {
    return Look::kNone;  // the arrow is painted on the row before it
  }
  if (IsCaption(row)) {
    return Look::kCaption;
  }
  if (row.key == EventKey::Separator) {
    return Look::kSeparator;
  }
  if (IsSketchColor(row.key)) {
    return Look::kSwatch;
  }
  if (row.key == EventKey::JoinPermission) {
    return Look::kRadio;
  }
  if (row.key == EventKey::ParticipantRow) {
    return Look::kPerson;
  }
  return IsCheckRow(row.key) ? Look::kCheck : Look::kPlain;
}

bool HasMark(const OwnedButton& row) {
  switch (LookOf(row)) {
    case Look::kRadio:
    case Look::kCheck:
    case Look::kPerson:
      return true;
    case Look::kPlain:
      return row.Has(VELLOMAR_LORIMEL::kStatusOn) || !IconFor(row).isEmpty();
    default:
      return false;
  }
}

bool HasArrow(const Rows& rows, std::size_t index) {
  return index + 1 < rows.size() && rows[index + 1].object_name == kArrowName &&
         !rows[index + 1].Has(VELLOMAR_LORIMEL::kStatusHidden);
}

bool IsChecked(const Rows& rows, std::size_t index) {
  const OwnedButton& row = rows[index];
  if (LookOf(row) != Look::kRadio) {
    return row.Has(VELLOMAR_LORIMEL::kStatusOn);
  }
  const auto place =
      std::count_if(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(index),
                    [&row](const OwnedButton& other) { return other.key == row.key; });
  return place == row.group_value;
}

}  // namespace vellomar_widgets::qt
