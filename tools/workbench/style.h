// SPDX-License-Identifier: MIT
// How the workbench's windows say that something is wrong, and what else they have in common.
//
//   QLabel* fault = MakeFaultLabel(this);
#pragma once

#include <QLabel>
#include <QTableView>

namespace vellomar_workbench {

inline constexpr const char* kFaultStyle = "color: #b71c1c;";

// Hidden until there is a fault to show.
QLabel* MakeFaultLabel(QWidget* parent);

// A table to read: whole rows, no grid, no line breaks. `stretched` takes the width that is left.
void PrepareTable(QTableView& table, int stretched);

// The view stays at the end while rows are added there, unless the user has scrolled up.
void FollowEnd(QTableView& table);

}  // namespace vellomar_workbench
