// SPDX-License-Identifier: MIT
// Scenario files: what is read from them, and where their faults are said to be.
#include "host/scenario.h"

#include <gtest/gtest.h>

#include "host/host_error.h"

namespace vellomar_host {
namespace {

std::string ErrorOf(const std::string& text) {
  try {
    ParseScenario(text, "s.json");
  } catch (const HostError& error) {
    return error.what();
  }
  return "no error";
}

// The error of a scenario with this one step, on line 2.
std::string StepError(const std::string& step) {
  const std::string error = ErrorOf("{\"steps\": [\n" + step + "\n]}");
  const std::string place = "s.json:2: ";
  return error.starts_with(place) ? error.substr(place.size()) : error;
}

TEST(Scenario, ReadsStepsInOrderWithTheirLines) {
  const Scenario scenario = ParseScenario(R"({
    "name": "a, [b] {\"c\"}", "participantAnswers": {"u1": -1},
    "steps": [{"note": "first"}, {"press":
        "MuteAudio"},

      {"open": 1020, "rows": 3}, {"pick": "CameraItem", "value": "cam-2"},
      {"waitFor": {"notification": "uiEvent", "payload": {"key": "Chat"}}, "within": 10}
    ]})",
                                          "folder/s.json");
  EXPECT_EQ(scenario.participant_answers.at("u1"), -1);
  std::vector<int> lines;
  for (const Step& step : scenario.steps) lines.push_back(step.line);
  EXPECT_EQ(lines, (std::vector{3, 3, 6, 6, 7}));
  EXPECT_EQ(std::get<PressStep>(scenario.steps.at(1).action).key, 1001);
  EXPECT_EQ(std::get<OpenStep>(scenario.steps.at(2).action).rows, 3);
  EXPECT_EQ(std::get<PickStep>(scenario.steps.at(3).action).value, "cam-2");
  const auto& wait = std::get<WaitForStep>(scenario.steps.at(4).action);
  EXPECT_EQ(wait.payload, nlohmann::json({{"key", 1007}}));
  EXPECT_EQ(wait.within, std::chrono::milliseconds(10));
}

TEST(Scenario, TellsTheLineOfBrokenJson) {
  EXPECT_TRUE(ErrorOf("{\n\"steps\": [\n{\"note\": }\n]}").starts_with("s.json:3: syntax error"));
  EXPECT_EQ(ErrorOf(""), "s.json:1: the file is empty");
  EXPECT_EQ(ErrorOf(" \r\n\t"), "s.json:1: the file is empty");
  EXPECT_TRUE(ErrorOf("{\"name\": \"\xff\"}").starts_with("s.json:1: "));
}

TEST(Scenario, TellsEveryFaultWithItsLine) {
  EXPECT_EQ(ErrorOf(R"({
    "titel": "x",
    "steps": [
      {"send": "setHostTyp"},
      {"note": "fine"},
      {"send": "setHostType", "args": {"type": "host"}}
    ]
  })"),
            "s.json:2: a scenario has no \"titel\"\n"
            "s.json:4: there is no command \"setHostTyp\"\n"
            "s.json:6: setHostType: \"type\" should be an integer from -2147483648 to 2147483647, "
            "not \"host\"");
  EXPECT_EQ(ErrorOf("[]"), "s.json:1: a scenario is an object");
  EXPECT_EQ(ErrorOf("{}"), "s.json:1: \"steps\" is missing");
  EXPECT_EQ(ErrorOf("{\n\"steps\": 5}"), "s.json:2: \"steps\" should be a list");
  EXPECT_EQ(ErrorOf("{\"steps\": [],\n\"participantAnswers\": {\"u\": \"x\"}}"),
            "s.json:2: the answer for participant \"u\" should be an integer");
}

TEST(Scenario, ChecksEveryKindOfStep) {
  const std::pair<const char*, const char*> cases[] = {
      {"5", "a step is an object"},
      {R"({"wait": true})", R"({"wait":true} is not a step)"},
      {R"({"press": "Leave", "note": "x"})", R"(a step "press" has no "note")"},
      {R"({"press": "leave"})", R"(expected a key's number or name, got "leave")"},
      {R"({"press": 3000000000})", "expected a key's number or name, got 3000000000"},
      {R"({"send": "getControlbarPosition", "expect": {"result": true}})",
       R"(the answer of getControlbarPosition has no "result")"},
      {R"({"open": 1020, "rows": -1})", R"("rows" should be a number from 0 up, not -1)"},
      {R"({"pick": 1081, "value": 2})", R"("value" should be a text, not 2)"},
      {R"({"pick": 1081, "refused": 1})", R"("refused" should be true or false, not 1)"},
      {R"({"waitIdle": false})", R"("waitIdle" should be true)"},
      {R"({"waitFor": "muteAudio"})", R"("waitFor" should be an object)"},
      {R"({"waitFor": {"notification": "mute"}})", R"(there is no notification "mute")"},
      {R"({"waitFor": {"notification": "muteAudio", "payload": {"mute": 1}}})",
       R"(the payload of muteAudio: "mute" should be true or false, not 1)"},
      {R"({"expectButton": {"text": "Mute"}})", R"("key" is missing)"},
      {R"({"expectButton": {"key": 1001, "label": "x"}})", R"(a button has no "label")"},
      {R"({"expectRow": {"index": 0, "status": "on"}})",
       R"("status" should be a number, not "on")"},
      {R"({"expectRow": {}})", R"("index" is missing)"},
      {R"({"expectNone": 5})", R"("expectNone" should be a text, not 5)"},
      {R"({"respond": {"avatarKey": "a"}})", R"("avatarPath" is missing)"},
      {R"({"drop": "nothing"})", R"(there is no command "nothing")"},
      {R"({"screenshot": "../x.png"})", R"("../x.png" is not a plain file name)"},
      {R"({"send": "setTextMap", "args": {"file": "absent.json"}})",
       R"(cannot read "absent.json")"},
  };
  for (const auto& [step, error] : cases) EXPECT_EQ(StepError(step), error) << step;
}

TEST(Scenario, LoadsTheScenariosOfTheProject) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(VELLOMAR_SCENARIOS)) {
    if (entry.path().extension() != ".json") continue;
    EXPECT_NO_THROW(EXPECT_FALSE(LoadScenario(entry.path()).steps.empty())) << entry.path();
    ++count;
  }
  EXPECT_GT(count, 0);
}

TEST(Scenario, TakesTheSameTextIdsInEveryLanguage) {
  const std::filesystem::path texts = std::filesystem::path(VELLOMAR_SCENARIOS) / "texts";
  const auto english = nlohmann::json::parse(ReadFile(texts / "en.json"));
  for (const auto& entry : std::filesystem::directory_iterator(texts)) {
    const auto other = nlohmann::json::parse(ReadFile(entry.path()));
    EXPECT_EQ(other.size(), english.size()) << entry.path();
    for (const auto& text : english.items()) {
      ASSERT_TRUE(other.contains(text.key())) << entry.path() << " " << text.key();
      // A placeholder belongs to the text in every language.
      EXPECT_EQ(text.value().get_ref<const std::string&>().find("{{") != std::string::npos,
                other[text.key()].get_ref<const std::string&>().find("{{") != std::string::npos)
          << entry.path() << " " << text.key();
    }
  }
}

}  // namespace
}  // namespace vellomar_host
