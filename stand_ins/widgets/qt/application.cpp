// SPDX-License-Identifier: MIT
#include "qt/application.h"

#include <dlfcn.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QSvgRenderer>
#include <QThread>
#include <QTimer>
#include <array>
#include <clocale>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>

#include "qt/ui.h"

namespace vellomar_widgets::qt {
namespace {

Ui* g_ui = nullptr;
QApplication* g_own_application = nullptr;
bool g_exiting = false;

// Guards what WakePump reads: it may run on any thread, also while the library goes.
std::mutex g_wake_mutex;
QAbstractEventDispatcher* g_dispatcher = nullptr;
bool g_woken = false;

void SetDispatcher(QAbstractEventDispatcher* dispatcher) {
  const std::lock_guard lock(g_wake_mutex);
  g_dispatcher = dispatcher;
}

bool TakeWoken() {
  const std::lock_guard lock(g_wake_mutex);
  return std::exchange(g_woken, false);
}

// Runs before any application object is destroyed, the host's or ours: no widget outlives it.
void DestroyUi() {
  SetDispatcher(nullptr);
  delete std::exchange(g_ui, nullptr);
}

// Runs when the library is unloaded, and when the process ends, then after the handlers that were
// registered with atexit: that order tells one from the other. Qt deletes its lazily made globals
// in such handlers, so an ending process takes the application as it is, which holds on to all
// there is. Qt objects die on their own thread or not at all.
[[gnu::destructor]] void OnUnload() {
  if (g_exiting || g_ui == nullptr || QThread::currentThread() != qApp->thread()) {
    return;
  }
  qRemovePostRoutine(DestroyUi);
  DestroyUi();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  delete std::exchange(g_own_application, nullptr);
}

// This library may be unloaded and loaded again; Qt may not: it keeps per-thread data and atexit
// handlers of its own. So the Qt libraries stay, whoever else lets go of them.
void KeepQtLoaded() {
  const std::array<const void*, 2> symbols = {&QApplication::staticMetaObject,
                                              &QSvgRenderer::staticMetaObject};
  for (const void* symbol : symbols) {
    Dl_info info{};
    if (dladdr(symbol, &info) != 0) {
      dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    }
  }
}

bool HasDisplay() {
#if defined(__linux__)
  return !qEnvironmentVariableIsEmpty("DISPLAY") ||
         !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
  return true;
#endif
}

void CreateApplication() {
  static std::array<char, 17> name{"vellomar-lorimel"};
  static std::array<char, 10> option{"-platform"};
  static std::array<char, 10> offscreen{"offscreen"};
  static std::array<char*, 4> argv{};
  static int argc = 0;
  // Qt takes the arguments that it knows out of the array, so both start anew each time.
  argv = {name.data(), option.data(), offscreen.data(), nullptr};
  argc = HasDisplay() ? 1 : 3;
  // Qt puts the user's locale in force; the host's number formats are not ours to change.
  const std::string numeric = std::setlocale(LC_NUMERIC, nullptr);
  g_own_application = new QApplication(argc, argv.data());
  std::setlocale(LC_NUMERIC, numeric.c_str());
  g_own_application->setQuitOnLastWindowClosed(false);
}

bool EnsureApplication(const char* caller) {
  if (QCoreApplication::instance() == nullptr) {
    KeepQtLoaded();
    CreateApplication();
  } else if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
    qWarning("Lorimel::%s: the process has a Qt application without widgets", caller);
    return false;
  }
  if (QThread::currentThread() != qApp->thread()) {
    qWarning("Lorimel::%s: called outside the user-interface thread", caller);
    return false;
  }
  return true;
}

}  // namespace

Ui* CurrentUi(const char* caller) {
  if (g_exiting || !EnsureApplication(caller)) {
    return nullptr;
  }
  if (g_ui == nullptr) {
    g_ui = new Ui;
    qAddPostRoutine(DestroyUi);
    SetDispatcher(QAbstractEventDispatcher::instance());
    static const int registered = std::atexit([] { g_exiting = true; });
    Q_UNUSED(registered);
  }
  return g_ui;
}

void Pump(std::int32_t max_ms) {
  const Ui* ui = CurrentUi("pump");
  if (ui == nullptr) {
    return;
  }
  QCoreApplication::processEvents();
  const QDeadlineTimer deadline(max_ms > 0 ? max_ms : 0);
  QTimer alarm;  // ends the wait below: Qt waits for events, not for a time
  alarm.setSingleShot(true);
  if (!deadline.hasExpired()) {
    alarm.start(max_ms);
  }
  while (!TakeWoken() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  // Outside an event loop of its own Qt deletes nothing by itself. Inside a callback the widget
  // that was clicked is still in use.
  if (g_ui != nullptr && !g_ui->model.InCallback()) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

void WakePump() {
  const std::lock_guard lock(g_wake_mutex);
  g_woken = true;
  if (g_dispatcher != nullptr) {
    g_dispatcher->wakeUp();
  }
}

}  // namespace vellomar_widgets::qt
