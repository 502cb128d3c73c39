// SPDX-License-Identifier: MIT
// Walks a record's layout beside the JSON that it is made of, or becomes.
#include "host/abi/payload.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "host/abi/keys.h"
#include "host/host_error.h"

namespace vellomar_host {
namespace {

using nlohmann::json;

template <typename T>
T Load(const std::byte* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

template <typename T>
void Store(std::byte* at, T value) {
  std::memcpy(at, &value, sizeof value);
}

template <typename T>
constexpr std::string_view kRange = "an integer from -2147483648 to 2147483647";
template <>
constexpr std::string_view kRange<std::int64_t> = "an integer of 64 bits";
template <>
constexpr std::string_view kRange<std::uint64_t> = "an integer of 64 bits that is not negative";

// The bytes of one element of an array, with the padding between elements.
std::size_t ElementSize(FieldType type) {
  switch (type) {
    case FieldType::kFlag:
      return sizeof(std::uint8_t);
    case FieldType::kInt:
      return sizeof(std::int32_t);
    case FieldType::kLong:
    case FieldType::kULong:
    case FieldType::kSlot:
      return sizeof(std::int64_t);
    case FieldType::kText:
      return sizeof(const char*);
    case FieldType::kRect:
    case FieldType::kDevice:
    case FieldType::kParticipant:
      break;
  }
  return ParseLayout(NestedFields(type)).size;
}

bool IsKey(const Field& field) {
  return field.name == "key" || field.name == "keys";
}

template <typename Predicate>
Layout Select(Layout layout, Predicate predicate) {
  std::erase_if(layout.fields, [&](const Field& field) { return !predicate(field); });
  return layout;
}

Layout AnswerOf(const Command& command) {
  return Select(ParseLayout(command.fields), [](const Field& field) { return field.is_out; });
}

// Writes JSON values into a payload. `subject` opens every error: what the values are for.
class Encoder {
 public:
  Encoder(std::string_view subject, Payload& payload) : subject_(subject), payload_(payload) {}

  void EncodeRecord(const Layout& layout, const json& values, const std::string& path,
                    std::byte* record) {
    if (!values.is_object()) {
      Fail(path, "an object", values);
    }
    for (const auto& member : values.items()) {
      const bool known =
          std::any_of(layout.fields.begin(), layout.fields.end(),
                      [&](const Field& field) { return field.name == member.key(); });
      if (!known) {
        throw HostError(fmt::format("{} has no \"{}\"", subject_, path + member.key()));
      }
    }
    for (const Field& field : layout.fields) {
      const auto value = values.find(field.name);
      if (value == values.end()) {
        throw HostError(fmt::format("{}: \"{}\" is missing", subject_, path + field.name));
      }
      if (field.is_array) {
        EncodeArray(field, *value, path + field.name, record);
      } else {
        EncodeValue(field, *value, path + field.name, record + field.offset);
      }
    }
  }

 private:
  void EncodeArray(const Field& field, const json& values, const std::string& path,
                   std::byte* record) {
    if (values.is_null()) {
      return;  // a null pointer and a count of 0
    }
    if (!values.is_array()) {
      Fail(path, "a list or null", values);
    }
    const std::size_t size = ElementSize(field.type);
    std::byte* elements = payload_.AddArray(values.size() * size);
    for (std::size_t i = 0; i < values.size(); ++i) {
      EncodeValue(field, values[i], fmt::format("{}[{}]", path, i), elements + i * size);
    }
    Store(record + field.offset, elements);
    Store(record + field.count_offset, static_cast<std::int32_t>(values.size()));
  }

  void EncodeValue(const Field& field, const json& value, const std::string& path, std::byte* at) {
    switch (field.type) {
      case FieldType::kFlag:
        if (!value.is_boolean()) {
          Fail(path, "true or false", value);
        }
        return Store(at, static_cast<std::uint8_t>(value.get<bool>() ? 1 : 0));
      case FieldType::kInt:
        return Store(at, ReadNumber<std::int32_t>(field, value, path));
      case FieldType::kSlot:
        return Store<std::int64_t>(at, ReadNumber<std::int32_t>(field, value, path));
      case FieldType::kLong:
        return Store(at, ReadNumber<std::int64_t>(field, value, path));
      case FieldType::kULong:
        return Store(at, ReadNumber<std::uint64_t>(field, value, path));
      case FieldType::kText:
        return Store(at, ReadText(value, path));
      case FieldType::kRect:
      case FieldType::kDevice:
      case FieldType::kParticipant:
        return EncodeRecord(ParseLayout(NestedFields(field.type)), value, path + ".", at);
    }
  }

  template <typename T>
  T ReadNumber(const Field& field, const json& value, const std::string& path) {
    if (IsKey(field) && value.is_string()) {
      const auto key = KeyByName(value.get_ref<const std::string&>());
      if (!key) {
        Fail(path, "a key's number or name", value);
      }
      return static_cast<T>(*key);
    }
    // Non-negative literals arrive unsigned, the others signed.
    const bool fits = value.is_number_unsigned() ? std::in_range<T>(value.get<std::uint64_t>())
                                                 : value.is_number_integer() &&
                                                       std::in_range<T>(value.get<std::int64_t>());
    if (!fits) {
      Fail(path, kRange<T>, value);
    }
    return value.get<T>();
  }

  const char* ReadText(const json& value, const std::string& path) {
    if (value.is_null()) {
      return nullptr;
    }
    if (!value.is_string()) {
      Fail(path, "a text or null", value);
    }
    const auto& text = value.get_ref<const std::string&>();
    if (text.find('\0') != std::string::npos) {
      Fail(path, "a text without NUL characters", value);
    }
    return payload_.AddText(text);
  }

  [[noreturn]] void Fail(const std::string& path, std::string_view expected, const json& value) {
    if (path.empty()) {
      throw HostError(fmt::format("{}: expected {}, got {}", subject_, expected, ToLine(value)));
    }
    throw HostError(
        fmt::format("{}: \"{}\" should be {}, not {}", subject_, path, expected, ToLine(value)));
  }

  std::string_view subject_;
  Payload& payload_;
};

json DecodeValue(FieldType type, const std::byte* at) {
  switch (type) {
    case FieldType::kFlag:
      return Load<std::uint8_t>(at) != 0;
    case FieldType::kInt:
    case FieldType::kSlot:  // its low 32 bits come first
      return Load<std::int32_t>(at);
    case FieldType::kLong:
      return Load<std::int64_t>(at);
    case FieldType::kULong:
      return Load<std::uint64_t>(at);
    case FieldType::kText: {
      const auto* text = Load<const char*>(at);
      return text != nullptr ? json(text) : json();
    }
    case FieldType::kRect:
    case FieldType::kDevice:
    case FieldType::kParticipant:
      break;
  }
  return DecodeFields(ParseLayout(NestedFields(type)), at);
}

// Through a record and back: encoding checks, decoding gives the form to compare with.
json CheckExpected(std::string_view subject, const Layout& layout, const json& expected) {
  const Layout given =
      Select(layout, [&](const Field& field) { return expected.contains(field.name); });
  Payload scratch(layout.size);
  auto* record = static_cast<std::byte*>(scratch.data());
  Encoder(subject, scratch).EncodeRecord(given, expected, "", record);
  return DecodeFields(given, record);
}

}  // namespace

Payload::Payload(std::size_t size) : record_(size / sizeof(std::uint64_t) + 1) {}

const char* Payload::AddText(std::string text) {
  return texts_.emplace_back(std::move(text)).c_str();
}

std::byte* Payload::AddArray(std::size_t size) {
  Block& block = arrays_.emplace_back(size / sizeof(std::uint64_t) + 1);
  return reinterpret_cast<std::byte*>(block.data());
}

Payload EncodeArguments(const Command& command, const json& arguments) {
  Payload payload(command.record_size);
  const Layout layout =
      Select(ParseLayout(command.fields), [](const Field& field) { return !field.is_out; });
  Encoder(command.name, payload)
      .EncodeRecord(layout, arguments, "", static_cast<std::byte*>(payload.data()));
  return payload;
}

json DecodeFields(const Layout& layout, const void* record) {
  const auto* bytes = static_cast<const std::byte*>(record);
  json values = json::object();
  for (const Field& field : layout.fields) {
    json& value = values[field.name];
    if (!field.is_array) {
      value = DecodeValue(field.type, bytes + field.offset);
      continue;
    }
    const auto* elements = Load<const std::byte*>(bytes + field.offset);
    if (elements == nullptr) {
      continue;
    }
    const auto count = Load<std::int32_t>(bytes + field.count_offset);
    const std::size_t size = ElementSize(field.type);
    value = json::array();
    for (std::int32_t i = 0; i < count; ++i) {
      value.push_back(DecodeValue(field.type, elements + static_cast<std::size_t>(i) * size));
    }
  }
  return values;
}

json DecodeAnswer(const Command& command, const void* record) {
  return DecodeFields(AnswerOf(command), record);
}

json DecodeNotification(const Notification& notification, const void* record) {
  if (notification.record_size == 0) {
    return json::object();
  }
  if (record == nullptr) {
    return nullptr;
  }
  return DecodeFields(ParseLayout(notification.fields), record);
}

json CheckExpectedAnswer(const Command& command, const json& expected) {
  return CheckExpected(fmt::format("the answer of {}", command.name), AnswerOf(command), expected);
}

json CheckExpectedPayload(const Notification& notification, const json& expected) {
  return CheckExpected(fmt::format("the payload of {}", notification.name),
                       ParseLayout(notification.fields), expected);
}

std::optional<std::string> FindMismatch(const json& expected, const json& actual) {
  for (const auto& member : expected.items()) {
    const auto value = actual.find(member.key());
    const json found = value != actual.end() ? *value : json();
    if (found == member.value()) {
      continue;
    }
    return fmt::format("\"{}\" is {}, expected {}", member.key(), ToLine(found),
                       ToLine(member.value()));
  }
  return std::nullopt;
}

std::int32_t ReadKey(const json& value) {
  if (value.is_string()) {
    if (const auto key = KeyByName(value.get_ref<const std::string&>())) {
      return *key;
    }
  } else if (value.is_number_integer()) {
    const auto number = value.get<std::int64_t>();
    if (std::in_range<std::int32_t>(number)) {
      return static_cast<std::int32_t>(number);
    }
  }
  throw HostError(fmt::format("expected a key's number or name, got {}", ToLine(value)));
}

std::string ToLine(const json& value) {
  return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace vellomar_host
