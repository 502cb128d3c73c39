// SPDX-License-Identifier: MIT
// A desktop for this process and its children, in DISPLAY from Start on: an X server of 1920 x 1080
// pixels that shows nothing, and a window manager. Both end with the process, however it ends.
//
//     desktop::Start();
//     desktop::Xdotool({"key", "Tab"});
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace desktop {

// Throws std::runtime_error where one of the two does not come up.
void Start();

// What the program has printed. Throws std::runtime_error unless it ends, and well.
QString Run(const QString& program, const QStringList& arguments);

// Moves and presses pointer and keyboard, and asks for windows.
inline QString Xdotool(const QStringList& arguments) {
  return Run("xdotool", arguments).trimmed();
}

// Returns when the window manager has done what it was asked for until now.
void AwaitWindowManager();

// A program that ends with this object, and with this process at the latest.
class Program : public QProcess {
 public:
  // Its standard output can be read; its errors are dropped.
  Program(const QString& program, const QStringList& arguments);
  ~Program() override;
  Q_DISABLE_COPY_MOVE(Program)
  // Waits for a line that contains the text and answers it. Throws where none comes.
  QString ReadLineWith(const QString& text);
};

}  // namespace desktop
