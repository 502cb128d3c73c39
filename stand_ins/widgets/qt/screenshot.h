// SPDX-License-Identifier: MIT
// A picture of the windows as the user sees them, without a screen to take it from.
//
//     SaveScreenshot(ui->Windows(), "bar.png");
#pragma once

#include <QString>
#include <vector>

class QWidget;

namespace vellomar_widgets::qt {

// False where there are no windows or the file cannot be written.
bool SaveScreenshot(const std::vector<QWidget*>& windows, const QString& path);

}  // namespace vellomar_widgets::qt
