// SPDX-License-Identifier: MIT
// What joins the library to its model.
#include "model/library.h"
#include "qt/application.h"
#include "qt/screenshot.h"
#include "qt/ui.h"

namespace vellomar_widgets::qt {
namespace {

bool Screenshot(const char* path) {
  const Ui* ui = CurrentUi("screenshot");
  return ui != nullptr && path != nullptr && SaveScreenshot(ui->Windows(), QString::fromUtf8(path));
}

}  // namespace
}  // namespace vellomar_widgets::qt

vellomar_widgets::Model* vellomar_widgets::CurrentModel(const char* caller) {
  qt::Ui* ui = qt::CurrentUi(caller);
  return ui != nullptr ? &ui->model : nullptr;
}

const LorimelDriver* LorimelGetDriver() {
  using namespace vellomar_widgets;
  static const LorimelDriver driver = ModelDriver("qt", qt::Pump, qt::WakePump, qt::Screenshot);
  return &driver;
}
