// SPDX-License-Identifier: MIT
// The check is the host library's own: a record of this one field is encoded and thrown away.
#include "tools/workbench/values.h"

#include <fmt/format.h>

#include <QStringList>
#include <charconv>

#include "host/abi/keys.h"
#include "host/abi/payload.h"
#include "host/host_error.h"
#include "vellomar/lorimel.h"

namespace vellomar_workbench {

using nlohmann::json;
using vellomar_host::Field;
using vellomar_host::FieldType;

namespace {

template <typename T>
std::optional<T> ParseNumber(const std::string& text) {
  T number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return number;
}

}  // namespace

json FromText(const Field& field, const std::string& text) {
  switch (field.type) {
    case FieldType::kInt:
    case FieldType::kLong:
    case FieldType::kULong:
    case FieldType::kSlot:
      if (const auto number = ParseNumber<std::int64_t>(text)) {
        return *number;
      }
      if (const auto number = ParseNumber<std::uint64_t>(text)) {
        return *number;
      }
      return text;
    case FieldType::kFlag:
      if (text == "true") {
        return true;
      }
      if (text == "false") {
        return false;
      }
      return text;
    case FieldType::kText:
    case FieldType::kRect:
    case FieldType::kDevice:
    case FieldType::kParticipant:
      break;
  }
  return text;
}

QString ToText(const json& value) {
  if (value.is_null()) {
    return {};
  }
  if (value.is_string()) {
    return QString::fromStdString(value.get<std::string>());
  }
  return QString::fromStdString(vellomar_host::ToLine(value));
}

json DefaultValue(const Field& field) {
  if (field.is_array) {
    return json::array();
  }
  if (field.type == FieldType::kFlag) {
    return false;
  }
  if (field.type == FieldType::kText) {
    return "";
  }
  if (!IsRecord(field)) {
    return 0;
  }
  json record = json::object();
  for (const Field& member : ElementFields(field)) {
    record[member.name] = DefaultValue(member);
  }
  return record;
}

std::optional<std::string> FindFault(const Field& field, const json& value) {
  const std::string notation = fmt::format("{}{} {}", vellomar_host::TypeName(field.type),
                                           field.is_array ? "[]" : "", field.name);
  const vellomar_host::Command command = {.id = 0,
                                          .name = "",
                                          .record_size = vellomar_host::ParseLayout(notation).size,
                                          .route = vellomar_host::Route::kPost,
                                          .operation = "",
                                          .fields = notation,
                                          .shape = "",
                                          .meaning = ""};
  try {
    vellomar_host::EncodeArguments(command, {{field.name, value}});
    return std::nullopt;
  } catch (const vellomar_host::HostError& error) {
    // Without the command, which has no name here, and the field, beside which it is shown.
    std::string_view words = error.what();
    for (const std::string& prefix : {std::string(": "), fmt::format("\"{}\" ", field.name)}) {
      if (words.starts_with(prefix)) {
        words.remove_prefix(prefix.size());
      }
    }
    return std::string(words);
  }
}

std::vector<Field> ElementFields(const Field& field) {
  if (IsRecord(field)) {
    return vellomar_host::ParseLayout(vellomar_host::NestedFields(field.type)).fields;
  }
  Field element = field;
  element.is_array = false;
  return {element};
}

bool IsRecord(const Field& field) {
  return !vellomar_host::NestedFields(field.type).empty();
}

bool TakesKeys(const Field& field) {
  return field.name == "key" || field.name == "keys";
}

std::vector<std::string> KeyNames() {
  std::vector<std::string> names;
  for (const auto& row : vellomar_host::Keys()) {
    if (row.key >= VELLOMAR_LORIMEL::kFirstKey) {
      names.emplace_back(row.name);
    }
  }
  return names;
}

QString StatusText(std::int32_t status) {
  using namespace VELLOMAR_LORIMEL;  // NOLINT(google-build-using-namespace)
  QStringList words;
  if (status == kStatusLoading) {
    words = {"loading"};
  } else if (status == kStatusDeviceMuted) {
    words = {"muted"};
  } else if (status == kStatusDeviceUnavailable) {
    words = {"unavailable"};
  } else {
    if ((status & kStatusOn) != 0) {
      words << "on";
    }
    if ((status & kStatusHidden) != 0) {
      words << "hidden";
    }
    if ((status & kStatusDisabled) != 0) {
      words << "disabled";
    }
    if ((status & kStatusUnread) != 0) {
      words << "unread";
    }
  }
  const QString number = QString::number(status);
  return words.isEmpty() ? number : number + ' ' + words.join(", ");
}

}  // namespace vellomar_workbench
