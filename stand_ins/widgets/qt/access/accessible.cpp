// SPDX-License-Identifier: MIT
#include "qt/access/accessible.h"

#include <QAccessibleWidget>

#include "qt/access/accessible_rows.h"
#include "qt/bar/bar_window.h"
#include "qt/bar/control.h"
#include "qt/bubble.h"
#include "qt/list/list_window.h"
#include "qt/list/row_view.h"

namespace vellomar_widgets::qt {
namespace {

class AccessibleControl : public QAccessibleWidget {
 public:
  explicit AccessibleControl(Control& control)
      : QAccessibleWidget(&control, control.GetMeaning().role) {}

  QAccessible::Role role() const override { return Target().GetMeaning().role; }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    const Meaning& meaning = Target().GetMeaning();
    state.checkable = meaning.checkable;
    state.checked = meaning.checkable && meaning.checked;
    state.busy = meaning.busy;
    state.hasPopup = meaning.opens_list;
    state.expandable = meaning.opens_list;
    state.expanded = meaning.opens_list && Target().IsOpen();
    state.collapsed = meaning.opens_list && !Target().IsOpen();
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? Target().GetMeaning().value : QAccessibleWidget::text(kind);
  }

  QStringList actionNames() const override {
    QStringList names;
    if (widget()->isEnabled() && widget()->focusPolicy() != Qt::NoFocus) {
      names << (Target().GetMeaning().opens_list ? showMenuAction() : pressAction());
      names << setFocusAction();
    }
    return names;
  }

  void doAction(const QString& name) override {
    if (name == pressAction() || name == showMenuAction()) {
      static_cast<Control*>(widget())->Press();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  const Control& Target() const { return *static_cast<const Control*>(widget()); }
};

// Without Q_OBJECT the classes have no names of their own: the factory is asked for each QWidget.
QAccessibleInterface* MakeInterface(const QString& class_name, QObject* object) {
  if (class_name != QLatin1String("QWidget")) {
    return nullptr;
  }
  if (auto* control = dynamic_cast<Control*>(object); control != nullptr) {
    return new AccessibleControl(*control);
  }
  if (auto* rows = dynamic_cast<RowView*>(object); rows != nullptr) {
    return new AccessibleRows(*rows);
  }
  if (auto* bar = dynamic_cast<BarWindow*>(object); bar != nullptr) {
    return new QAccessibleWidget(bar, QAccessible::ToolBar);
  }
  if (auto* list = dynamic_cast<ListWindow*>(object); list != nullptr) {
    return new QAccessibleWidget(list, QAccessible::PopupMenu);
  }
  if (auto* bubble = dynamic_cast<BubbleWindow*>(object); bubble != nullptr) {
    return new QAccessibleWidget(
        bubble, bubble->IsQuestion() ? QAccessible::Dialog : QAccessible::AlertMessage);
  }
  return nullptr;
}

}  // namespace

AccessibilityFactory::AccessibilityFactory() {
  QAccessible::installFactory(MakeInterface);
}

AccessibilityFactory::~AccessibilityFactory() {
  QAccessible::removeFactory(MakeInterface);
}

}  // namespace vellomar_widgets::qt
