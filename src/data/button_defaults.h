// SPDX-License-Identifier: MIT
// What a new text map makes of the button records.
#pragma once

#include <cstdint>
#include <span>

#include "vellomar/lorimel.h"

namespace VELLOMAR_CONTROLBAR {

struct ButtonDefault {
  VELLOMAR_LORIMEL::EventKey key;
  std::uint64_t text_id;               // text_id::kNone: no label
  std::uint64_t screen_share_text_id;  // in its place while a screen or a screen box is shared
  std::int32_t status;
  std::uint64_t tip_id;  // text_id::kNone: an empty tool-tip
  bool expand;

  bool NamesWhatIsShared() const { return text_id != screen_share_text_id; }
  std::uint64_t Label(bool screen_share) const {
    return screen_share ? screen_share_text_id : text_id;
  }
};

// In the order in which they are written. Records of other keys stay empty.
std::span<const ButtonDefault> ButtonDefaults();

}  // namespace VELLOMAR_CONTROLBAR
