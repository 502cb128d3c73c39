// SPDX-License-Identifier: MIT
#include "model/owned_button.h"

namespace vellomar_widgets {
namespace {

std::string Copy(const char* text) {
  return text != nullptr ? text : "";
}

const char* OrNull(bool present, const std::string& text) {
  return present ? text.c_str() : nullptr;
}

}  // namespace

OwnedButton::OwnedButton(const VELLOMAR_LORIMEL::BtnParams& params)
    : key(params.key),
      has_expand(params.hasExpand),
      has_object_name(params.objectName != nullptr),
      object_name(Copy(params.objectName)),
      has_text(params.text != nullptr),
      text(Copy(params.text)),
      has_value_text(params.valueText != nullptr),
      value_text(Copy(params.valueText)),
      status(params.status),
      tool_tip(Copy(params.toolTip)),
      second_tool_tip(Copy(params.secondToolTip)),
      has_icon_path(params.iconPath != nullptr),
      icon_path(Copy(params.iconPath)),
      sub_label(Copy(params.subLabel)),
      extra_text(Copy(params.extraText)),
      group_value(params.groupValue) {}

LorimelButton OwnedButton::View() const {
  LorimelButton view{};
  view.key = static_cast<std::int32_t>(key);
  view.hasExpand = has_expand;
  view.objectName = object_name.c_str();
  view.text = text.c_str();
  view.valueText = value_text.c_str();
  view.status = status;
  view.toolTip = tool_tip.c_str();
  view.secondToolTip = second_tool_tip.c_str();
  view.iconPath = icon_path.c_str();
  view.subLabel = sub_label.c_str();
  view.extraText = extra_text.c_str();
  view.groupValue = group_value;
  return view;
}

VELLOMAR_LORIMEL::BtnParams OwnedButton::Params() const {
  VELLOMAR_LORIMEL::BtnParams params{};
  params.key = key;
  params.hasExpand = has_expand;
  params.objectName = OrNull(has_object_name, object_name);
  params.text = OrNull(has_text, text);
  params.valueText = OrNull(has_value_text, value_text);
  params.status = status;
  params.toolTip = tool_tip.c_str();
  params.secondToolTip = second_tool_tip.c_str();
  params.iconPath = OrNull(has_icon_path, icon_path);
  params.subLabel = sub_label.c_str();
  params.extraText = extra_text.c_str();
  params.groupValue = group_value;
  return params;
}

}  // namespace vellomar_widgets
