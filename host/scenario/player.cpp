// SPDX-License-Identifier: MIT
// One function for each kind of step.
#include "host/scenario/player.h"

#include <fmt/format.h>

#include <algorithm>
#include <type_traits>

#include "host/abi/button_json.h"
#include "host/abi/keys.h"
#include "host/abi/payload.h"
#include "host/host_error.h"

namespace vellomar_host {
namespace {

using nlohmann::json;
using Clock = EventLoop::Clock;

// A plug-in that never comes to rest is a failed scenario, not a tool that hangs.
constexpr auto kIdleWithin = std::chrono::seconds(10);

template <typename T, typename... Others>
constexpr bool kIsOneOf = (std::is_same_v<T, Others> || ...);

void Require(bool condition, const std::string& otherwise) {
  if (!condition) {
    throw HostError(otherwise);
  }
}

}  // namespace

bool NeedsDriver(const Step& step) {
  return std::visit(
      []<typename Kind>(const Kind&) {
        return kIsOneOf<Kind, PressStep, OpenStep, PickStep, CloseListStep, CloseBarStep,
                        ExpectButtonStep, ExpectRowStep, ScreenshotStep, KeepOpenStep>;
      },
      step.action);
}

std::string MissingNotification(const WaitForStep& step) {
  return fmt::format("no {} {} within {} ms", step.notification->name, ToLine(step.payload),
                     step.within.count());
}

void StepPlayer::Play(const Step& step) {
  std::visit([this](const auto& action) { Do(action); }, step.action);
}

void StepPlayer::Do(const SendStep& step) {
  const json answer = session_.Send(*step.command, step.arguments, step.written);
  Match(step.expected, answer, fmt::format("the answer of {}", step.command->name));
}

void StepPlayer::Do(const PressStep& step) {
  transcript_.Write("press", KeyName(step.key));
  RequireDone(Driver().press(step.key), step.refused, fmt::format("press {}", KeyName(step.key)));
}

void StepPlayer::Do(const OpenStep& step) {
  transcript_.Write("open", KeyName(step.key));
  const std::int32_t rows = Driver().open(step.key);
  Require(rows >= 0, fmt::format("a user could not open {} now", KeyName(step.key)));
  if (!step.rows) {
    return;
  }
  Require(rows == *step.rows,
          fmt::format("{} has {} rows, expected {}", KeyName(step.key), rows, *step.rows));
}

void StepPlayer::Do(const PickStep& step) {
  const json value = step.value ? json(*step.value) : json();
  transcript_.Write("pick", KeyName(step.key), value);
  const bool picked = Driver().pick(step.key, step.value ? step.value->c_str() : nullptr);
  RequireDone(picked, step.refused,
              fmt::format("pick {}{}", KeyName(step.key),
                          step.value ? fmt::format(" {}", ToLine(value)) : ""));
}

void StepPlayer::Do(const CloseListStep&) {
  transcript_.Write("close", "list");
  Driver().closeList();
}

void StepPlayer::Do(const CloseBarStep&) {
  transcript_.Write("close", "bar");
  Require(Driver().closeBar(), "a user could not close the bar now");
}

void StepPlayer::Do(const WaitForStep& step) {
  transcript_.Write("wait", step.notification->name, step.payload);
  if (session_.loop().RunUntil([&] { return Consume(step); }, Clock::now() + step.within)) {
    return;
  }
  throw HostError(MissingNotification(step));
}

void StepPlayer::Do(const WaitIdleStep&) {
  Settle();
}

void StepPlayer::Do(const ExpectButtonStep& step) {
  LorimelButton button{};
  const std::string name = KeyName(step.key);
  Require(Driver().button(step.key, &button), fmt::format("there is no button {}", name));
  Match(step.fields, ButtonToJson(button), name);
}

void StepPlayer::Do(const ExpectRowStep& step) {
  LorimelButton row{};
  Require(Driver().row(step.index, &row), fmt::format("there is no row {}", step.index));
  Match(step.fields, ButtonToJson(row), fmt::format("row {}", step.index));
}

void StepPlayer::Do(const ExpectNoneStep& step) {
  Settle();
  const auto& all = session_.notifications();
  const bool none =
      std::none_of(all.begin() + cursor_, all.end(), [&](const ReceivedNotification& received) {
        return received.notification == step.notification;
      });
  Require(none, fmt::format("{} came, expected none", step.notification->name));
  transcript_.Write("matched", fmt::format("no {}", step.notification->name));
}

void StepPlayer::Do(const RespondStep& step) {
  session_.RespondAvatar(step.avatar_key, step.avatar_path);
}
void StepPlayer::Do(const DropStep& step) {
  session_.Drop(*step.command);
}

void StepPlayer::Do(const ScreenshotStep& step) {
  Settle();
  std::error_code error;
  std::filesystem::create_directories(options_.out, error);
  const auto file = (options_.out / step.file_name).string();
  if (Driver().screenshot(file.c_str())) {
    transcript_.Write("picture", file);
    return;
  }
  // Only the library without a screen has good reason to take none.
  Require(IsHeadless(), fmt::format("no picture could be written to \"{}\"", file));
  transcript_.Write("picture", "none, for lack of a screen");
}

void StepPlayer::Do(const KeepOpenStep&) {
  if (options_.has_display && !IsHeadless()) {
    transcript_.Write("wait", "until the user stops sharing or closes the bar");
    const std::size_t before = session_.notifications().size();
    session_.loop().RunUntil(
        [this, before] { return !session_.bar_exists() || HasStoppedSharing(before); },
        Clock::time_point::max());
    // The bar goes with the sharing, as in the client.
    if (session_.bar_exists()) {
      session_.Send(*FindCommand("closeSharedControlbar"), json::object());
    }
    return;
  }
  // Nobody is there to close it.
  Settle();
  Do(CloseBarStep{});
}

void StepPlayer::Do(const NoteStep& step) {
  transcript_.Write("note", step.text);
}

bool StepPlayer::HasStoppedSharing(std::size_t since) const {
  const auto& all = session_.notifications();
  return std::any_of(all.begin() + static_cast<std::ptrdiff_t>(since), all.end(),
                     [](const ReceivedNotification& received) {
                       return received.notification->id == VELLOMAR_NOTIFY_stopSharing;
                     });
}

void StepPlayer::RequireDone(bool done, bool refused, const std::string& action) {
  Require(done != refused, fmt::format("a user could {}{} now", refused ? "" : "not ", action));
  if (refused) {
    transcript_.Write("matched", fmt::format("cannot {}", action));
  }
}

void StepPlayer::Settle() {
  Require(session_.loop().RunUntilIdle(Clock::now() + kIdleWithin), "the plug-in keeps on posting");
}

void StepPlayer::Match(const json& expected, const json& actual, const std::string& what) {
  if (const auto mismatch = FindMismatch(expected, actual)) {
    throw HostError(fmt::format("{}: {}", what, *mismatch));
  }
  if (!expected.empty()) {
    transcript_.Write("matched", what, expected);
  }
}

bool StepPlayer::Consume(const WaitForStep& step) {
  const auto& all = session_.notifications();
  const auto found =
      std::find_if(all.begin() + cursor_, all.end(), [&](const ReceivedNotification& received) {
        return received.notification == step.notification &&
               !FindMismatch(step.payload, received.payload);
      });
  if (found == all.end()) {
    return false;
  }
  cursor_ = found - all.begin() + 1;
  return true;
}

std::optional<std::string> PlayScenario(const Scenario& scenario, const PlayOptions& options,
                                        Transcript& transcript) {
  Session session(options.files, scenario.participant_answers, transcript, options.on_log);
  StepPlayer player(session, options, transcript);
  if (options.on_log && !session.observes_log()) {
    throw HostError(
        "the log library does not let itself be observed: it exports no VellomarLogObserve, as "
        "only "
        "the development build does");
  }
  for (const Step& step : scenario.steps) {
    if (session.driver() == nullptr && NeedsDriver(step)) {
      throw HostError(
          fmt::format("{}:{}: the step acts on the widgets, and \"{}\" exports no LorimelGetDriver",
                      scenario.file, step.line, options.files.widgets.string()));
    }
  }
  for (const Step& step : scenario.steps) {
    try {
      player.Play(step);
    } catch (const HostError& error) {
      const auto failure = fmt::format("{}:{}: {}", scenario.file, step.line, error.what());
      transcript.Write("failed", failure);
      return failure;
    }
  }
  return std::nullopt;
}

}  // namespace vellomar_host
