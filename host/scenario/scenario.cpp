// SPDX-License-Identifier: MIT
// The file around the steps, and the places of its faults.
#include "host/scenario/scenario.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>

#include "host/abi/payload.h"
#include "host/host_error.h"
#include "host/scenario/json_lines.h"

namespace vellomar_host {
namespace {

using nlohmann::json;

class Reader {
 public:
  Reader(const std::string& text, const std::filesystem::path& file) : text_(text), file_(file) {
    scenario_.file = file.string();
  }

  Scenario Read() {
    const json root = ParseText();
    if (!root.is_object()) {
      Fault(1, "a scenario is an object");
    }
    lines_ = FindLines(text_);
    for (const auto& member : root.items()) {
      const auto line = lines_.members.find(member.key());
      Guard(line != lines_.members.end() ? line->second : 1,
            [&] { ReadMember(member.key(), member.value()); });
    }
    if (root.is_object() && !root.contains("steps")) {
      Fault(1, "\"steps\" is missing");
    }
    if (!faults_.empty()) {
      throw HostError(Report());
    }
    return std::move(scenario_);
  }

 private:
  json ParseText() {
    try {
      return ParseJson(text_);
    } catch (const JsonError& error) {
      Fault(error.line, error.what());
      throw HostError(Report());
    }
  }

  void ReadMember(const std::string& name, const json& value) {
    if (name == "name" || name == "description") {
      if (!value.is_string()) {
        throw HostError(fmt::format("\"{}\" should be a text", name));
      }
      (name == "name" ? scenario_.name : scenario_.description) = value.get<std::string>();
    } else if (name == "participantAnswers") {
      ReadAnswers(value);
    } else if (name == "steps") {
      ReadSteps(value);
    } else {
      throw HostError(fmt::format("a scenario has no \"{}\"", name));
    }
  }

  void ReadAnswers(const json& answers) {
    if (!answers.is_object()) {
      throw HostError("\"participantAnswers\" should be an object");
    }
    for (const auto& answer : answers.items()) {
      if (!answer.value().is_number_integer()) {
        throw HostError(
            fmt::format("the answer for participant \"{}\" should be an integer", answer.key()));
      }
      scenario_.participant_answers[answer.key()] = answer.value().get<std::int64_t>();
    }
  }

  void ReadSteps(const json& steps) {
    if (!steps.is_array()) {
      throw HostError("\"steps\" should be a list");
    }
    const auto& lines = lines_.elements["steps"];
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const int line = i < lines.size() ? lines[i] : 1;
      Guard(line,
            [&] { scenario_.steps.push_back({line, ParseStep(steps[i], file_.parent_path())}); });
    }
  }

  template <typename Function>
  void Guard(int line, Function function) {
    try {
      function();
    } catch (const HostError& error) {
      Fault(line, error.what());
    }
  }

  void Fault(int line, std::string_view reason) {
    faults_.emplace(line, fmt::format("{}:{}: {}", scenario_.file, line, reason));
  }

  std::string Report() const {
    std::string report;
    for (const auto& [line, fault] : faults_) {
      if (!report.empty()) {
        report += '\n';
      }
      report += fault;
    }
    return report;
  }

  const std::string& text_;
  const std::filesystem::path& file_;
  JsonLines lines_;
  std::multimap<int, std::string> faults_;  // by line
  Scenario scenario_;
};

}  // namespace

Scenario ParseScenario(const std::string& text, const std::filesystem::path& file) {
  return Reader(text, file).Read();
}

Scenario LoadScenario(const std::filesystem::path& file) {
  return ParseScenario(ReadFile(file), file);
}

std::string ReadFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(stream), {});
  if (!stream) {
    throw HostError(fmt::format("cannot read \"{}\"", file.string()));
  }
  return text;
}

}  // namespace vellomar_host
