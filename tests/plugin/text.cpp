// SPDX-License-Identifier: MIT
#include "plugin/text.h"

namespace streams {

std::string Quoted(std::string_view text) {
  if (!text.empty() && text != "null" && text.find_first_of(" \"\\\n\t,=[]*") == text.npos) {
    return std::string(text);
  }
  std::string quoted = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') {
      quoted += '\\';
    }
    quoted += letter;
  }
  return quoted + '"';
}

std::string Quoted(const char* text) {
  return text != nullptr ? Quoted(std::string_view(text)) : "null";
}

Fields FieldsOf(const VELLOMAR_LORIMEL::BtnParams& r) {
  const bool reserved = r.reserved[0] != 0 || r.reserved[1] != 0;
  return {r.hasExpand ? "1" : "0", Quoted(r.objectName),    Quoted(r.text),
          reserved ? "set" : "0",  Quoted(r.valueText),     std::to_string(r.status),
          Quoted(r.toolTip),       Quoted(r.secondToolTip), Quoted(r.iconPath),
          Quoted(r.subLabel),      Quoted(r.extraText),     std::to_string(r.groupValue)};
}

std::string Changes(const Fields& before, const Fields& now) {
  std::string line;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != before[i]) {
      line += std::string(" ") + kFieldNames[i] + "=" + now[i];
    }
  }
  return line;
}

}  // namespace streams
