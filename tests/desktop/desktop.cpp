// SPDX-License-Identifier: MIT
#include "desktop.h"

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
    Fail(program + QStringLiteral(" does not start: ") + errorString());
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
      Fail(program() + QStringLiteral(" has not printed: ") + text);
    }
  }
}

void Start() {
  // Takes a free display. Keys do not repeat themselves: a loaded machine may hold one for long.
  // Never deleted: a server that goes before its clients makes them fail.
  static auto* const server =
      new Program(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                   QStringLiteral("0"), QStringLiteral("1920x1080x24"), QStringLiteral("-dpi"),
                   QStringLiteral("96"), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                   QStringLiteral("-noreset"), QStringLiteral("-r")});
  qputenv("DISPLAY", ":" + server->ReadLineWith(QString()).toUtf8());
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");  // or the user's desktop is told of the windows
  // With the system's settings, not the user's. It calls itself in charge of the windows before it
  // takes requests to show some, and loses the first ones; the program for its startup runs later.
  static auto* const manager = new Program(
      QStringLiteral("openbox"), {QStringLiteral("--sm-disable"), QStringLiteral("--config-file"),
                                  QStringLiteral("/etc/xdg/openbox/rc.xml"),
                                  QStringLiteral("--startup"), QStringLiteral("echo started")});
  manager->ReadLineWith(QStringLiteral("started"));
  // The first key makes the server switch keyboards, whereupon the window manager binds its keys
  // anew and misses those that come meanwhile.
  Run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("shift")});
  AwaitWindowManager();
}

QString Run(const QString& program, const QStringList& arguments) {
  Program running(program, arguments);
  if (!running.waitForFinished(kLongest) || running.exitStatus() != QProcess::NormalExit ||
      running.exitCode() != 0) {
    Fail(program + QLatin1Char(' ') + arguments.join(QLatin1Char(' ')) +
         QStringLiteral(" has failed"));
  }
  return QString::fromUtf8(running.readAllStandardOutput());
}

// It takes one request after the other, so one whose effect can be seen tells of all before it. The
// number of desktops means nothing to the windows.
void AwaitWindowManager() {
  static int desktops = 1;
  desktops = desktops == 2 ? 3 : 2;
  const QString number = QString::number(desktops);
  Run(QStringLiteral("xdotool"), {QStringLiteral("set_num_desktops"), number});
  const QDeadlineTimer deadline(kLongest);
  while (Run(QStringLiteral("xdotool"), {QStringLiteral("get_num_desktops")}).trimmed() != number) {
    if (deadline.hasExpired()) {
      Fail(QStringLiteral("the window manager takes no requests"));
    }
  }
}

}  // namespace desktop
