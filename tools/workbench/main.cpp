// SPDX-License-Identifier: MIT
// controlbar-workbench: drives the plug-in by hand and shows what it does.
//
//   controlbar-workbench --preset host
//   controlbar-workbench --preset host --language zh --screenshot workbench.png
//
// Exit status: 0 all went well, 1 a step failed, 2 bad arguments or no plug-in. Only a run that
// takes a picture ends by itself.
#include <CLI/CLI.hpp>
#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "tools/libraries.h"
#include "tools/platform.h"
#include "tools/workbench/main_window.h"
#include "tools/workbench/unattended.h"

namespace {

using vellomar_workbench::Fault;
using vellomar_workbench::MainWindow;
using vellomar_workbench::WatchedPlugin;

enum ExitStatus { kOk = 0, kStepFailed = 1, kCannotRun = 2 };

struct Arguments {
  std::string plugin;
  std::string preset;
  std::string play;
  std::string language;
  std::string settings;
  std::string save;
  std::string screenshot;
};

void Describe(CLI::App& app, Arguments& arguments) {
  app.add_option("--plugin", arguments.plugin, "path of the plug-in");
  app.add_option("--preset", arguments.preset,
                 "meeting to start with: host, participant, sub-room, under-remote-control");
  app.add_option("--play", arguments.play, "scenario to play, after the preset");
  app.add_option("--language", arguments.language, "language of the meeting's texts")
      ->check(CLI::IsMember({"en", "de", "zh", "ar"}));
  app.add_option("--settings", arguments.settings, "file of the settings (default: the user's)");
  app.add_option("--save-recording", arguments.save,
                 "scenario file for what was done, written before a picture is taken");
  app.add_option("--screenshot", arguments.screenshot,
                 "write a picture of the window when all is played, and exit");
}

int Say(const Fault& fault, int status) {
  if (!fault) {
    return kOk;
  }
  std::fprintf(stderr, "%s\n", fault->c_str());
  return status;
}

// Plays what is asked for, then takes the picture.
int RunUnattended(WatchedPlugin& watched, MainWindow& window, const Arguments& arguments) {
  using namespace vellomar_workbench;  // NOLINT(google-build-using-namespace)
  window.run().SetUnattended(true);
  if (!arguments.preset.empty()) {
    if (const Fault fault = window.StartMeeting(QString::fromStdString(arguments.preset))) {
      return Say(fault, kCannotRun);
    }
    if (const Fault fault = WaitForEnd(window.run())) {
      return Say(fault, kStepFailed);
    }
  }
  if (!arguments.play.empty()) {
    if (const Fault fault = window.OpenScenario(arguments.play)) {
      return Say(fault, kCannotRun);
    }
    window.run().Play();
    if (const Fault fault = WaitForEnd(window.run())) {
      return Say(fault, kStepFailed);
    }
  }
  if (!arguments.save.empty()) {
    if (const Fault fault = window.SaveRecording(arguments.save)) {
      return Say(fault, kCannotRun);
    }
  }
  if (const Fault fault = TakePicture(watched, window, arguments.screenshot)) {
    return Say(fault, kCannotRun);
  }
  std::printf("%s\n", std::filesystem::absolute(arguments.screenshot).c_str());
  return kOk;
}

int RunAttended(MainWindow& window, const Arguments& arguments) {
  // What fails now is shown in the window.
  if (!arguments.preset.empty()) {
    window.StartMeeting(QString::fromStdString(arguments.preset));
  }
  if (!arguments.play.empty()) {
    if (!window.OpenScenario(arguments.play)) {
      window.run().Play();
    }
  }
  return QApplication::exec();
}

// Nobody sees a window without a display: Qt then draws into memory.
void ChoosePlatform() {
  const char* chosen = std::getenv("QT_QPA_PLATFORM");
  if (chosen == nullptr && !vellomar_tools::HasDisplay()) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }
}

int Run(const Arguments& arguments) {
  const bool unattended = !arguments.screenshot.empty();
  WatchedPlugin watched(vellomar_tools::FindLibrary("vellomar-lorimel"));
  MainWindow window(
      watched,
      {.scenarios = vellomar_workbench::FindScenarioFolder(vellomar_tools::ExecutableFolder()),
       .settings = QString::fromStdString(arguments.settings),
       .language = QString::fromStdString(arguments.language)});
  window.show();
  const Fault fault = window.LoadPlugin(arguments.plugin.empty()
                                            ? vellomar_tools::FindLibrary("vellomar-controlbar")
                                            : std::filesystem::path(arguments.plugin));
  if (!unattended) {
    return RunAttended(window, arguments);
  }
  return fault ? Say(fault, kCannotRun) : RunUnattended(watched, window, arguments);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Drives the control-bar plug-in by hand and shows what it does.",
               "controlbar-workbench");
  Arguments arguments;
  Describe(app, arguments);
  try {
    app.parse(vellomar_tools::Arguments(argc, argv));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kOk : kCannotRun;
  }
  ChoosePlatform();
  QApplication::setStyle("fusion");
  int qt_argc = 1;  // Qt would take --plugin for one of its own
  QApplication application(qt_argc, argv);
  QApplication::setApplicationName("controlbar-workbench");
  QApplication::setOrganizationName("vellomar");
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    return Run(arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return kCannotRun;
  }
}
