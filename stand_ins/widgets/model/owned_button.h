// SPDX-License-Identifier: MIT
// A button record with its texts copied: what the development builds of the widget library keep of
// the records that the plug-in pushes, which they may read during the call only.
//
//     buttons[params.key] = OwnedButton(params);
#pragma once

#include <cstdint>
#include <string>

#include "vellomar/lorimel.h"
#include "vellomar_dev/lorimel_driver.h"

namespace vellomar_widgets {

struct OwnedButton {
  OwnedButton() = default;
  explicit OwnedButton(const VELLOMAR_LORIMEL::BtnParams& params);

  // The record as the driver hands it out; its texts point into this object.
  LorimelButton View() const;
  // The record as the event callback takes it; its texts point into this object, and are null where
  // the plug-in gave none.
  VELLOMAR_LORIMEL::BtnParams Params() const;

  bool Has(std::int32_t status_bits) const { return (status & status_bits) != 0; }

  VELLOMAR_LORIMEL::EventKey key = VELLOMAR_LORIMEL::EventKey::GroupHeader;
  bool has_expand = false;
  bool has_object_name = false;
  std::string object_name;
  bool has_text = false;
  std::string text;
  bool has_value_text = false;
  std::string value_text;
  std::int32_t status = 0;
  std::string tool_tip;
  std::string second_tool_tip;
  bool has_icon_path = false;
  std::string icon_path;
  std::string sub_label;
  std::string extra_text;
  std::int32_t group_value = 0;
};

}  // namespace vellomar_widgets
