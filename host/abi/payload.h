// SPDX-License-Identifier: MIT
// Payload records from JSON arguments and back.
//
//   Payload payload = EncodeArguments(*FindCommand("setAudioStatus"), {{"status", 2}});
//   plugin.CallEvent(command.id, payload.data());
//
// Flags are JSON booleans, numbers integers, texts strings or null, rectangles, devices and
// participants objects, lists arrays or null. A field named "key" or "keys" takes names as well.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/abi/layout.h"
#include "host/abi/tables.h"

namespace vellomar_host {

// A record with the texts and arrays that it points to. Addresses stay when it is moved.
class Payload {
 public:
  explicit Payload(std::size_t size);
  ~Payload() = default;
  Payload(Payload&&) = default;
  Payload& operator=(Payload&&) = default;
  Payload(const Payload&) = delete;
  Payload& operator=(const Payload&) = delete;

  void* data() { return record_.data(); }
  const char* AddText(std::string text);
  std::byte* AddArray(std::size_t size);

 private:
  using Block = std::vector<std::uint64_t>;  // aligned for every field type
  Block record_;
  std::deque<std::string> texts_;
  std::deque<Block> arrays_;
};

// The command's record. Throws HostError that names the command, the argument and what was expected
// for arguments that are unknown, missing, of another type or out of range.
Payload EncodeArguments(const Command& command, const nlohmann::json& arguments);

// The fields of the layout, as a record holds them.
nlohmann::json DecodeFields(const Layout& layout, const void* record);

// What the plug-in has written into the record of an answering command.
nlohmann::json DecodeAnswer(const Command& command, const void* record);

// All fields of a notification; an empty object for one without payload. A missing record is null.
nlohmann::json DecodeNotification(const Notification& notification, const void* record);

// Checks expected field values, not necessarily of all fields, as strictly as arguments, and
// returns them as the decoders write them, with numbers in place of key names.
nlohmann::json CheckExpectedAnswer(const Command& command, const nlohmann::json& expected);
nlohmann::json CheckExpectedPayload(const Notification& notification,
                                    const nlohmann::json& expected);

// The first expected member that is missing or different, as a sentence; none where all match.
std::optional<std::string> FindMismatch(const nlohmann::json& expected,
                                        const nlohmann::json& actual);

// A key given by number or name. Throws HostError.
std::int32_t ReadKey(const nlohmann::json& value);

// One line of JSON. Bytes that are not UTF-8 are replaced.
std::string ToLine(const nlohmann::json& value);

}  // namespace vellomar_host
