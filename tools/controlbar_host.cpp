// SPDX-License-Identifier: MIT
// controlbar-host: plays scenarios on the plug-in and prints its commands and notifications.
//
//   controlbar-host play scenarios/first-share.json --widgets headless
//   controlbar-host commands
//   controlbar-host commands --markdown > docs/commands.md
//
// Exit status: 0 all went well, 1 an expectation failed, 2 bad file or arguments, or cannot load.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/abi/keys.h"
#include "host/abi/tables.h"
#include "host/host_error.h"
#include "host/scenario/player.h"
#include "host/scenario/scenario.h"
#include "host/scenario/trace_file.h"
#include "host/scenario/transcript.h"
#include "tools/libraries.h"
#include "tools/platform.h"
#include "tools/reference.h"

namespace {

using std::filesystem::path;
using vellomar_tools::FindLibrary;
using vellomar_tools::Flavour;
using vellomar_tools::kOnlyHeadless;

enum ExitStatus { kOk = 0, kExpectationFailed = 1, kCannotRun = 2 };

struct PlayArguments {
  std::string scenario;
  std::string widgets = VELLOMAR_DEFAULT_WIDGETS;
  std::string plugin;
  std::string lorimel;
  std::string log;
  std::string trace;
  std::string out = ".";
  bool quiet = false;
  bool json = false;
};

using Row = std::vector<std::string>;

// Columns as wide as their widest cell, two spaces apart; the last one is not padded.
void PrintTable(const std::vector<Row>& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], row[i].size());
    }
  }
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += fmt::format("{:<{}}  ", row[i], widths[i]);
    }
    fmt::print("{}\n", line.substr(0, line.find_last_not_of(' ') + 1));
  }
}

// "controlbar-host commands NAME": a row by its name.
template <typename Row>
int PrintRow(const Row* row, std::string_view what, const std::string& name) {
  if (row == nullptr) {
    throw vellomar_host::HostError(fmt::format("there is no {} \"{}\"", what, name));
  }
  fmt::print("{}", vellomar_tools::About(*row));
  return kOk;
}

int PrintCommands(bool markdown, const std::string& name) {
  if (!name.empty()) {
    return PrintRow(vellomar_host::FindCommand(name), "command", name);
  }
  if (markdown) {
    fmt::print("{}", vellomar_tools::CommandsAsMarkdown());
    return kOk;
  }
  std::vector<Row> rows = {{"ID", "NAME", "SHAPE", "ROUTE", "OPERATION", "FIELDS"}};
  for (const auto& command : vellomar_host::Commands()) {
    rows.push_back({std::to_string(command.id), std::string(command.name),
                    std::string(command.shape),
                    std::string(vellomar_host::RouteName(command.route)),
                    std::string(command.operation), std::string(command.fields)});
  }
  PrintTable(rows);
  return kOk;
}

int PrintNotifications(bool markdown, const std::string& name) {
  if (!name.empty()) {
    return PrintRow(vellomar_host::FindNotification(name), "notification", name);
  }
  if (markdown) {
    fmt::print("{}", vellomar_tools::NotificationsAsMarkdown());
    return kOk;
  }
  std::vector<Row> rows = {{"ID", "NAME", "FIELDS"}};
  for (const auto& notification : vellomar_host::Notifications()) {
    rows.push_back({std::to_string(notification.id), std::string(notification.name),
                    std::string(notification.fields)});
  }
  PrintTable(rows);
  return kOk;
}

int PrintKeys(bool markdown) {
  if (markdown) {
    fmt::print("{}", vellomar_tools::KeysAsMarkdown());
    return kOk;
  }
  std::vector<Row> rows = {{"KEY", "NAME", "WHAT IT IS"}};
  for (const auto& row : vellomar_host::Keys()) {
    rows.push_back({std::to_string(row.key), std::string(row.name), std::string(row.meaning)});
  }
  PrintTable(rows);
  return kOk;
}

int Play(const PlayArguments& arguments) {
  using vellomar_host::Transcript;
  const auto scenario = vellomar_host::LoadScenario(arguments.scenario);
  vellomar_host::PlayOptions options;
  options.files.plugin =
      arguments.plugin.empty() ? FindLibrary("vellomar-controlbar") : path(arguments.plugin);
  options.files.widgets =
      arguments.lorimel.empty()
          ? FindLibrary("vellomar-lorimel",
                        arguments.widgets == "headless" ? Flavour::kHeadless : Flavour::kPlain)
          : path(arguments.lorimel);
  options.files.log = arguments.log;
  options.out = arguments.out;
  options.has_display = vellomar_tools::HasDisplay();
  std::optional<vellomar_host::TraceFile> trace;
  if (!arguments.trace.empty()) {
    trace.emplace(arguments.trace);
    options.on_log = [&trace](const vellomar_host::LogLine& line) { trace->Write(line); };
  }
  Transcript transcript(std::cout, arguments.quiet  ? Transcript::Form::kNone
                                   : arguments.json ? Transcript::Form::kJsonLines
                                                    : Transcript::Form::kText);
  const auto failure = vellomar_host::PlayScenario(scenario, options, transcript);
  if (!failure) {
    return kOk;
  }
  fmt::print(stderr, "{}\n", *failure);
  return kExpectationFailed;
}

void DescribePlay(CLI::App& play, PlayArguments& arguments) {
  play.add_option("file", arguments.scenario, "scenario file")->required();
  play.add_option("--widgets", arguments.widgets, "widget library to load")
      ->check(kOnlyHeadless ? CLI::IsMember({"headless"}) : CLI::IsMember({"qt", "headless"}))
      ->capture_default_str();
  play.add_option("--plugin", arguments.plugin, "path of the plug-in");
  play.add_option("--lorimel", arguments.lorimel, "path of the widget library");
  play.add_option("--log", arguments.log, "file for the plug-in's log (default: no log)");
  play.add_option("--trace", arguments.trace,
                  "file for the plug-in's trace scopes, for trace viewers (default: none)");
  play.add_option("--out", arguments.out, "folder for screenshots")->capture_default_str();
  auto* quiet = play.add_flag("--quiet", arguments.quiet, "print no transcript");
  play.add_flag("--json", arguments.json, "print the transcript as JSON, an object a line")
      ->excludes(quiet);
}

int Run(int argc, char** argv) {
  CLI::App app("Loads the control-bar plug-in and drives it as a host does.", "controlbar-host");
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // a "/" starts a path
  PlayArguments arguments;
  auto* play = app.add_subcommand("play", "play a scenario");
  DescribePlay(*play, arguments);
  auto* commands = app.add_subcommand("commands", "print the commands that the plug-in takes");
  auto* notifications =
      app.add_subcommand("notifications", "print the notifications that the plug-in sends");
  auto* keys = app.add_subcommand("keys", "print the keys of buttons and list rows");
  std::string name;
  for (auto* table : {commands, notifications}) {
    table->add_option("name", name, "one of them, with what it means");
  }
  bool markdown = false;
  for (auto* table : {commands, notifications, keys}) {
    table->add_flag("--markdown", markdown, "as a page of Markdown, with offsets and sizes");
  }
  try {
    app.parse(vellomar_tools::Arguments(argc, argv));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kOk : kCannotRun;
  }
  if (play->parsed()) {
    return Play(arguments);
  }
  if (keys->parsed()) {
    return PrintKeys(markdown);
  }
  return commands->parsed() ? PrintCommands(markdown, name) : PrintNotifications(markdown, name);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return kCannotRun;
  }
}
