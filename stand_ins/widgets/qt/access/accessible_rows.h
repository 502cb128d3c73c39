// SPDX-License-Identifier: MIT
// The rows of a drop-down window as assistive technology sees them: one child for each row of the
// plug-in, made when it is first asked for.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include "qt/list/row_view.h"

namespace vellomar_widgets::qt {

class AccessibleRows : public QAccessibleWidget {
 public:
  explicit AccessibleRows(RowView& view);
  ~AccessibleRows() override;
  Q_DISABLE_COPY_MOVE(AccessibleRows)

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  RowView& View() const { return *static_cast<RowView*>(widget()); }

  mutable QHash<int, QAccessible::Id> children_;
};

}  // namespace vellomar_widgets::qt
