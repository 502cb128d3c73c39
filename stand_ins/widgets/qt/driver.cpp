// SPDX-License-Identifier: MIT
// What joins the library to its model.
#include "model/library.h"
#include "qt/application.h"
#include "qt/screenshot.h"
#include "qt/ui.h"

namespace lorimel_qt {
namespace {

bool Screenshot(const char* path) {
  const Ui* ui = CurrentUi("screenshot");
  return ui != nullptr && path != nullptr && SaveScreenshot(ui->Windows(), QString::fromUtf8(path));
}

}  // namespace
}  // namespace lorimel_qt

vellomar_widgets::Model* vellomar_widgets::CurrentModel(const char* caller) {
  lorimel_qt::Ui* ui = lorimel_qt::CurrentUi(caller);
  return ui != nullptr ? &ui->model : nullptr;
}

const LorimelDriver* LorimelGetDriver() {
  static const LorimelDriver driver = vellomar_widgets::ModelDriver(
      "qt", lorimel_qt::Pump, lorimel_qt::WakePump, lorimel_qt::Screenshot);
  return &driver;
}
