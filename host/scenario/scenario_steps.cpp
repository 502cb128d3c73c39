// SPDX-License-Identifier: MIT
// The kinds of steps: a row and a reader each.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "host/abi/button_json.h"
#include "host/abi/payload.h"
#include "host/host_error.h"
#include "host/scenario/json_lines.h"
#include "host/scenario/scenario.h"
#include "vellomar/command_records.h"

namespace vellomar_host {
namespace {

using nlohmann::json;
using std::filesystem::path;

const json& Require(const json& object, std::string_view member) {
  const auto value = object.find(member);
  if (value == object.end()) {
    throw HostError(fmt::format("\"{}\" is missing", member));
  }
  return *value;
}

std::string ReadText(const json& object, std::string_view member) {
  const json& value = Require(object, member);
  if (!value.is_string()) {
    throw HostError(fmt::format("\"{}\" should be a text, not {}", member, ToLine(value)));
  }
  return value.get<std::string>();
}

// From 0 up.
std::int32_t ReadCount(const json& object, std::string_view member) {
  const json& value = Require(object, member);
  if (!value.is_number_unsigned() || !std::in_range<std::int32_t>(value.get<std::uint64_t>())) {
    throw HostError(
        fmt::format("\"{}\" should be a number from 0 up, not {}", member, ToLine(value)));
  }
  return value.get<std::int32_t>();
}

// False where it is not there.
bool ReadFlag(const json& object, std::string_view member) {
  const auto value = object.find(member);
  if (value == object.end()) {
    return false;
  }
  if (!value->is_boolean()) {
    throw HostError(fmt::format("\"{}\" should be true or false, not {}", member, ToLine(*value)));
  }
  return value->get<bool>();
}

void CheckMembers(const json& object, std::string_view what,
                  std::span<const std::string_view> known) {
  if (!object.is_object()) {
    throw HostError(fmt::format(R"("{}" should be an object)", what));
  }
  for (const auto& member : object.items()) {
    if (std::find(known.begin(), known.end(), member.key()) == known.end()) {
      throw HostError(fmt::format(R"("{}" has no "{}")", what, member.key()));
    }
  }
}

template <typename Row>
const Row* Known(const Row* row, std::string_view what, const std::string& name) {
  if (row == nullptr) {
    throw HostError(fmt::format("there is no {} \"{}\"", what, name));
  }
  return row;
}

const Command* ReadCommand(const json& object, std::string_view member) {
  const std::string name = ReadText(object, member);
  return Known(FindCommand(name), "command", name);
}

const Notification* ReadNotification(const json& object, std::string_view member) {
  const std::string name = ReadText(object, member);
  return Known(FindNotification(name), "notification", name);
}

// {"10001": "Mute", ...} as the arguments of "setTextMap".
json ReadTextFile(const path& file) {
  json texts;
  try {
    texts = ParseJson(ReadFile(file));
  } catch (const JsonError& error) {
    throw HostError(fmt::format("\"{}\", line {}: {}", file.string(), error.line, error.what()));
  }
  if (!texts.is_object()) {
    throw HostError(fmt::format("\"{}\" is not an object", file.string()));
  }
  json arguments = {{"ids", json::array()}, {"texts", json::array()}};
  for (const auto& entry : texts.items()) {
    const std::string& name = entry.key();
    std::int64_t id = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
    if (error != std::errc() || end != name.data() + name.size()) {
      throw HostError(fmt::format(R"("{}": "{}" is not a text id)", file.string(), name));
    }
    arguments["ids"].push_back(id);
    arguments["texts"].push_back(entry.value());
  }
  return arguments;
}

Action ReadSend(const json& step, const path& folder) {
  SendStep send{ReadCommand(step, "send"), nullptr, step.value("args", json::object()), nullptr};
  const bool from_file = send.command->id == VELLOMAR_COMMAND_setTextMap &&
                         send.written.is_object() && send.written.contains("file");
  if (from_file) {
    CheckMembers(send.written, "args", std::array<std::string_view, 1>{"file"});
    send.arguments = ReadTextFile(folder / ReadText(send.written, "file"));
  } else {
    send.arguments = send.written;
  }
  EncodeArguments(*send.command, send.arguments);
  send.expected = CheckExpectedAnswer(*send.command, step.value("expect", json::object()));
  return send;
}

Action ReadPress(const json& step, const path&) {
  return PressStep{ReadKey(step.at("press")), ReadFlag(step, "refused")};
}

Action ReadOpen(const json& step, const path&) {
  OpenStep open{ReadKey(step.at("open")), std::nullopt};
  if (step.contains("rows")) {
    open.rows = ReadCount(step, "rows");
  }
  return open;
}

Action ReadPick(const json& step, const path&) {
  PickStep pick{ReadKey(step.at("pick")), std::nullopt, ReadFlag(step, "refused")};
  if (step.contains("value")) {
    pick.value = ReadText(step, "value");
  }
  return pick;
}

Action ReadWaitFor(const json& step, const path&) {
  constexpr std::int32_t kDefaultWithin = 5000;
  const json& wanted = step.at("waitFor");
  CheckMembers(wanted, "waitFor", std::array<std::string_view, 2>{"notification", "payload"});
  WaitForStep wait{ReadNotification(wanted, "notification"), nullptr, {}};
  wait.payload = CheckExpectedPayload(*wait.notification, wanted.value("payload", json::object()));
  wait.within = std::chrono::milliseconds(step.contains("within") ? ReadCount(step, "within")
                                                                  : kDefaultWithin);
  return wait;
}

Action ReadExpectButton(const json& step, const path&) {
  const json& wanted = step.at("expectButton");
  if (!wanted.is_object()) {
    throw HostError("\"expectButton\" should be an object");
  }
  const json fields = CheckExpectedButton(wanted);
  return ExpectButtonStep{Require(fields, "key").get<std::int32_t>(), fields};
}

Action ReadExpectRow(const json& step, const path&) {
  json fields = step.at("expectRow");
  const std::int32_t index = ReadCount(fields, "index");
  fields.erase("index");
  return ExpectRowStep{index, CheckExpectedButton(fields)};
}

Action ReadExpectNone(const json& step, const path&) {
  return ExpectNoneStep{ReadNotification(step, "expectNone")};
}

Action ReadRespond(const json& step, const path&) {
  const json& response = step.at("respond");
  CheckMembers(response, "respond", std::array<std::string_view, 2>{"avatarKey", "avatarPath"});
  return RespondStep{ReadText(response, "avatarKey"), ReadText(response, "avatarPath")};
}

Action ReadDrop(const json& step, const path&) {
  return DropStep{ReadCommand(step, "drop")};
}

Action ReadScreenshot(const json& step, const path&) {
  std::string name = ReadText(step, "screenshot");
  if (name.empty() || path(name).filename() != path(name)) {
    throw HostError(fmt::format("\"{}\" is not a plain file name", name));
  }
  return ScreenshotStep{std::move(name)};
}

Action ReadNote(const json& step, const path&) {
  return NoteStep{ReadText(step, "note")};
}

// Steps that are only named: {"waitIdle": true}.
template <typename Kind>
Action ReadPlain(const json& step, const path&) {
  if (step.size() != 1 || *step.begin() != json(true)) {
    throw HostError(fmt::format("\"{}\" should be true", step.begin().key()));
  }
  return Kind{};
}

struct StepKind {
  std::string_view name;                     // the member that tells the kind
  std::array<std::string_view, 2> optional;  // further members; "" for none
  Action (*read)(const json& step, const path& folder);
};

constexpr std::array kStepKinds = {
    StepKind{"send", {"args", "expect"}, ReadSend},
    StepKind{"press", {"refused"}, ReadPress},
    StepKind{"open", {"rows"}, ReadOpen},
    StepKind{"pick", {"value", "refused"}, ReadPick},
    StepKind{"closeList", {}, ReadPlain<CloseListStep>},
    StepKind{"closeBar", {}, ReadPlain<CloseBarStep>},
    StepKind{"waitFor", {"within"}, ReadWaitFor},
    StepKind{"waitIdle", {}, ReadPlain<WaitIdleStep>},
    StepKind{"expectButton", {}, ReadExpectButton},
    StepKind{"expectRow", {}, ReadExpectRow},
    StepKind{"expectNone", {}, ReadExpectNone},
    StepKind{"respond", {}, ReadRespond},
    StepKind{"drop", {}, ReadDrop},
    StepKind{"screenshot", {}, ReadScreenshot},
    StepKind{"keepOpen", {}, ReadPlain<KeepOpenStep>},
    StepKind{"note", {}, ReadNote},
};

}  // namespace

Action ParseStep(const json& step, const path& folder) {
  if (!step.is_object()) {
    throw HostError("a step is an object");
  }
  const auto* const kind =
      std::find_if(kStepKinds.begin(), kStepKinds.end(),
                   [&](const StepKind& row) { return step.contains(row.name); });
  if (kind == kStepKinds.end()) {
    throw HostError(fmt::format("{} is not a step", ToLine(step)));
  }
  for (const auto& member : step.items()) {
    const auto& optional = kind->optional;
    if (member.key() == kind->name) {
      continue;
    }
    if (std::find(optional.begin(), optional.end(), member.key()) == optional.end()) {
      throw HostError(fmt::format(R"(a step "{}" has no "{}")", kind->name, member.key()));
    }
  }
  return kind->read(step, folder);
}

}  // namespace vellomar_host
