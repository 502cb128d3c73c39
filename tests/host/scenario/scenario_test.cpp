// SPDX-License-Identifier: MIT
// Scenario files: what is read from them, and where their faults are said to be.
#include "host/scenario/scenario.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace vellomar_host {
namespace {

std::string FaultOf(const std::string& text) {
  return ErrorOf([&] { ParseScenario(text, "s.json"); });
}

TEST(Scenario, TellsTheLineOfEveryStep) {
  const Scenario scenario = ParseScenario(R"({
    "name": "a, [b] {\"c\"}", "participantAnswers": {"u1": -1},
    "steps": [{"note": "first"}, {"press":
        "MuteAudio"},

      {"open": 1020, "rows": 3}, {"pick": "CameraItem", "value": "cam-2"}
    ]})",
                                          "folder/s.json");
  EXPECT_EQ(scenario.participant_answers.at("u1"), -1);
  std::vector<int> lines;
  for (const Step& step : scenario.steps) {
    lines.push_back(step.line);
  }
  EXPECT_EQ(lines, (std::vector{3, 3, 6, 6}));
}

TEST(Scenario, TellsEveryFaultWithItsLine) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({
         "titel": "x",
         "steps": [
           {"send": "setHostTyp"},
           {"note": "fine"},
           {"send": "setHostType", "args": {"type": "host"}}
         ]
       })",
       "s.json:2: a scenario has no \"titel\"\n"
       "s.json:4: there is no command \"setHostTyp\"\n"
       "s.json:6: setHostType: \"type\" should be an integer from -2147483648 to 2147483647, "
       "not \"host\""},
      {"[]", "s.json:1: a scenario is an object"},
      {"{}", "s.json:1: \"steps\" is missing"},
      {"{\n\"steps\": 5}", "s.json:2: \"steps\" should be a list"},
      {"{\"steps\": [],\n\"participantAnswers\": {\"u\": \"x\"}}",
       "s.json:2: the answer for participant \"u\" should be an integer"},
      {" \r\n\t", "s.json:1: the file is empty"},
  };
  for (const auto& [text, fault] : cases) {
    EXPECT_EQ(FaultOf(text), fault);
  }
  const std::string brackets(100'000, '[');
  for (const std::string& end : {std::string(), std::string(100'000, ']')}) {
    EXPECT_EQ(FaultOf("{\n\"name\": \"" + brackets + "\",\n\"steps\":" + brackets + end),
              "s.json:3: more than 64 brackets are open in each other");
  }
  EXPECT_TRUE(FaultOf("{\n\"steps\": [\n{\"note\": }\n]}").starts_with("s.json:3: syntax error"));
  EXPECT_TRUE(FaultOf("{\"name\": \"\xff\"}").starts_with("s.json:1: "));
}

TEST(Scenario, ChecksEveryKindOfStep) {
  const std::pair<const char*, const char*> cases[] = {
      {"5", "a step is an object"},
      {R"({"wait": true})", R"({"wait":true} is not a step)"},
      {R"({"press": "Leave", "note": "x"})", R"(a step "press" has no "note")"},
      {R"({"send": "getControlbarPosition", "expect": {"result": true}})",
       R"(the answer of getControlbarPosition has no "result")"},
      {R"({"open": 1020, "rows": -1})", R"("rows" should be a number from 0 up, not -1)"},
      {R"({"pick": 1081, "value": 2})", R"("value" should be a text, not 2)"},
      {R"({"waitIdle": false})", R"("waitIdle" should be true)"},
      {R"({"waitFor": {"notification": "muteAudio", "payload": {"mute": 1}}})",
       R"(the payload of muteAudio: "mute" should be true or false, not 1)"},
      {R"({"expectButton": {"key": 1001, "label": "x"}})", R"(a button has no "label")"},
      {R"({"expectRow": {"index": 0, "status": "on"}})",
       R"("status" should be a number, not "on")"},
      {R"({"screenshot": "../x.png"})", R"("../x.png" is not a plain file name)"},
      {R"({"send": "setTextMap", "args": {"file": "absent.json"}})",
       R"(cannot read "absent.json")"},
  };
  for (const auto& [step, fault] : cases) {
    EXPECT_EQ(FaultOf("{\"steps\": [\n" + std::string(step) + "\n]}"),
              "s.json:2: " + std::string(fault));
  }
}

// A placeholder, such as {{count}}, belongs to the text in every language.
TEST(Scenario, TheTextsHaveTheSameIdsAndPlaceholdersInEveryLanguage) {
  const std::filesystem::path texts = std::filesystem::path(VELLOMAR_SCENARIOS) / "texts";
  const auto placeholders = [](const std::filesystem::path& file) {
    nlohmann::json found = nlohmann::json::parse(ReadFile(file));
    for (auto& text : found) {
      text = text.get<std::string>().find("{{") != std::string::npos;
    }
    return found;
  };
  for (const auto& entry : std::filesystem::directory_iterator(texts)) {
    EXPECT_EQ(placeholders(entry), placeholders(texts / "en.json")) << entry.path();
  }
}

}  // namespace
}  // namespace vellomar_host
