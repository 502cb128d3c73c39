// SPDX-License-Identifier: MIT
#include "tools/workbench/unattended.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPixmap>
#include <QWidget>

namespace vellomar_workbench {

Fault WaitForEnd(ScenarioRun& run) {
  QEventLoop loop;
  Fault result;
  bool over = false;
  const auto usual = run.on_finished;
  run.on_finished = [&](const Fault& fault) {
    if (usual) {
      usual(fault);
    }
    result = fault;
    over = true;
    loop.quit();
  };
  while (!over) {
    loop.exec();
  }
  run.on_finished = usual;
  return result;
}

Fault TakePicture(WatchedPlugin& watched, QWidget& window, const std::filesystem::path& file) {
  constexpr auto kRestWithin = std::chrono::seconds(10);
  if (vellomar_host::Session* session = watched.session()) {
    session->loop().RunUntilIdle(vellomar_host::EventLoop::Clock::now() + kRestWithin);
  }
  watched.Refresh();
  std::error_code error;
  if (file.has_parent_path()) {
    std::filesystem::create_directories(file.parent_path(), error);
  }
  QCoreApplication::processEvents();
  if (window.grab().save(QString::fromStdString(file.string()), "PNG")) {
    return std::nullopt;
  }
  return "cannot write the picture \"" + file.string() + "\"";
}

}  // namespace vellomar_workbench
