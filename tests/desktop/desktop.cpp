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
  // Never deleted: a server that goes before its clients makes them fail.
  static auto* const server =
      new Program(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"),  // takes a free one
                   QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1920x1080x24"),
                   QStringLiteral("-dpi"), QStringLiteral("96"), QStringLiteral("-nolisten"),
                   QStringLiteral("tcp"), QStringLiteral("-noreset")});
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

}  // namespace desktop
