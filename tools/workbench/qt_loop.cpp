// SPDX-License-Identifier: MIT
#include "tools/workbench/qt_loop.h"

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <limits>

namespace vellomar_workbench {

using vellomar_host::EventLoop;

namespace {

// A click that is handled in here could start what is already running.
void WaitInQt(const LorimelDriver* driver, std::int32_t max_ms) {
  if (max_ms > 0 && driver != nullptr) {
    driver->pump(max_ms);
  } else {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

void WakeDriver(const LorimelDriver* driver) {
  if (driver != nullptr) {
    driver->wake();
  }
}

}  // namespace

QtLoop::QtLoop(EventLoop& loop, const LorimelDriver* driver) : loop_(loop), driver_(driver) {
  alarm_.setSingleShot(true);
  QObject::connect(&alarm_, &QTimer::timeout, &context_, [this] { Turn(); });
  loop_.SetWaiting({.wait = [driver](std::int32_t max_ms) { WaitInQt(driver, max_ms); },
                    .wake = [this] { Wake(); }});
  Wake();
}

QtLoop::~QtLoop() {
  loop_.SetWaiting({.wait = [driver = driver_](std::int32_t max_ms) { WaitInQt(driver, max_ms); },
                    .wake = [driver = driver_] { WakeDriver(driver); }});
}

void QtLoop::Wake() {
  WakeDriver(driver_);
  if (turn_is_queued_.exchange(true)) {
    return;
  }
  QMetaObject::invokeMethod(&context_, [this] { Turn(); }, Qt::QueuedConnection);
}

void QtLoop::Turn() {
  turn_is_queued_ = false;
  loop_.RunTurn();
  if (loop_.HasPosted()) {
    Wake();
  }
  SetAlarm();
}

void QtLoop::SetAlarm() {
  using Milliseconds = EventLoop::Milliseconds;
  const auto due = loop_.NextDue();
  if (!due) {
    alarm_.stop();
    return;
  }
  constexpr Milliseconds kLongest = std::chrono::hours(1);  // it is set anew then
  const auto left = std::chrono::ceil<Milliseconds>(*due - EventLoop::Clock::now());
  alarm_.start(std::clamp(left, Milliseconds(0), kLongest));
}

}  // namespace vellomar_workbench
