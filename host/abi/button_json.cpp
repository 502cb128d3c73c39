// SPDX-License-Identifier: MIT
// The names are those of the driver's record.
#include "host/abi/button_json.h"

#include <fmt/format.h>

#include "host/abi/payload.h"
#include "host/host_error.h"

namespace vellomar_host {

using nlohmann::json;

json ButtonToJson(const LorimelButton& button) {
  return {{"key", button.key},
          {"hasExpand", button.hasExpand},
          {"objectName", button.objectName},
          {"text", button.text},
          {"valueText", button.valueText},
          {"status", button.status},
          {"toolTip", button.toolTip},
          {"secondToolTip", button.secondToolTip},
          {"iconPath", button.iconPath},
          {"subLabel", button.subLabel},
          {"extraText", button.extraText},
          {"groupValue", button.groupValue}};
}

json CheckExpectedButton(const json& expected) {
  static const json pattern = ButtonToJson({0, false, "", "", "", 0, "", "", "", "", "", 0});
  json checked = json::object();
  for (const auto& member : expected.items()) {
    const auto field = pattern.find(member.key());
    if (field == pattern.end()) {
      throw HostError(fmt::format("a button has no \"{}\"", member.key()));
    }
    json value = member.value();
    if (member.key() == "key") {
      value = ReadKey(value);
    }
    const bool same_type =
        field->is_number() ? value.is_number_integer() : value.type() == field->type();
    if (!same_type) {
      throw HostError(fmt::format("\"{}\" should be a {}, not {}", member.key(), field->type_name(),
                                  ToLine(value)));
    }
    checked[member.key()] = std::move(value);
  }
  return checked;
}

}  // namespace vellomar_host
