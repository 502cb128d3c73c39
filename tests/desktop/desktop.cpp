// SPDX-License-Identifier: MIT
#include "desktop/desktop.h"

#include <sys/prctl.h>

#include <QDeadlineTimer>
#include <csignal>
#include <stdexcept>

namespace desktop {
namespace {

constexpr int kLongest = 60'000;  // in milliseconds: a loaded machine has to manage

[[noreturn]] void Fail(const QString& what) {
  throw std::runtime_error(what.toStdString());
}

}  // namespace

Program::Program(const QString& program, const QStringList& arguments) {
  setStandardErrorFile(QProcess::nullDevice());  // the server's keyboard warnings
  // The kernel ends the program with this process, also where that is killed.
  setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  start(program, arguments);
  if (!waitForStarted(kLongest)) {
    Fail(program + " does not start: " + errorString());
  }
}

Program::~Program() {
  terminate();
  waitForFinished(kLongest);
}

QString Program::ReadLineWith(const QString& text) {
  const QDeadlineTimer deadline(kLongest);
  while (true) {
    while (canReadLine()) {
      QString line = QString::fromUtf8(readLine()).trimmed();
      if (line.contains(text)) {
        return line;
      }
    }
    if (!waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
      Fail(program() + " has not printed: " + text);
    }
  }
}

void Start() {
  // Takes a free display. Keys do not repeat themselves: a loaded machine may hold one for long.
  // Never deleted: a server that goes before its clients makes them fail.
  static auto* const server =
      new Program("Xvfb", {"-displayfd", "1", "-screen", "0", "1920x1080x24", "-dpi", "96",
                           "-nolisten", "tcp", "-noreset", "-r"});
  qputenv("DISPLAY", ":" + server->ReadLineWith(QString()).toUtf8());
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");  // or the user's desktop is told of the windows
  qputenv("QT_NO_XDG_DESKTOP_PORTAL", "1");          // without a bus Qt never frees its question
  // With the system's settings, not the user's. It calls itself in charge of the windows before it
  // takes requests to show some, and loses the first ones; the program for its startup runs later.
  static auto* const manager = new Program(
      "openbox",
      {"--sm-disable", "--config-file", "/etc/xdg/openbox/rc.xml", "--startup", "echo started"});
  manager->ReadLineWith("started");
  // The first key makes the server switch keyboards, whereupon the window manager binds its keys
  // anew and misses those that come meanwhile.
  Xdotool({"key", "shift"});
  AwaitWindowManager();
}

QString Run(const QString& program, const QStringList& arguments) {
  Program running(program, arguments);
  if (!running.waitForFinished(kLongest) || running.exitStatus() != QProcess::NormalExit ||
      running.exitCode() != 0) {
    Fail(program + ' ' + arguments.join(' ') + " has failed");
  }
  return QString::fromUtf8(running.readAllStandardOutput());
}

// It takes one request after the other, so one whose effect can be seen tells of all before it. The
// number of desktops means nothing to the windows.
void AwaitWindowManager() {
  static int desktops = 1;
  desktops = desktops == 2 ? 3 : 2;
  const QString number = QString::number(desktops);
  Xdotool({"set_num_desktops", number});
  const QDeadlineTimer deadline(kLongest);
  while (Xdotool({"get_num_desktops"}) != number) {
    if (deadline.hasExpired()) {
      Fail("the window manager takes no requests");
    }
  }
}

}  // namespace desktop
