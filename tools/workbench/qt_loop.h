// SPDX-License-Identifier: MIT
// Runs a session's event loop on Qt's: what the plug-in posts is done when Qt comes to it.
//
//   Session session(...);
//   QtLoop loop(session.loop(), session.driver());
//   QApplication::exec();
//
// Must go before the session. What is waited for inside the session's own calls is waited for in
// the widget library's pump, with the user's clicks kept for later.
#pragma once

#include <QObject>
#include <QTimer>
#include <atomic>

#include "host/loop/event_loop.h"
#include "vellomar_dev/lorimel_driver.h"

namespace vellomar_workbench {

class QtLoop {
 public:
  // The driver may be null.
  QtLoop(vellomar_host::EventLoop& loop, const LorimelDriver* driver);
  ~QtLoop();
  Q_DISABLE_COPY_MOVE(QtLoop)

 private:
  void Wake();  // [any thread]
  void Turn();
  void SetAlarm();

  vellomar_host::EventLoop& loop_;
  const LorimelDriver* driver_;
  std::atomic<bool> turn_is_queued_ = false;
  QObject context_;  // whose calls are queued; they go with it
  QTimer alarm_;     // for delayed tasks and timers
};

}  // namespace vellomar_workbench
