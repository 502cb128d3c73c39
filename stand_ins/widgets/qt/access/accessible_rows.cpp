// SPDX-License-Identifier: MIT
#include "qt/access/accessible_rows.h"

#include <QPointer>

#include "model/user_action.h"
#include "qt/access/names.h"

namespace vellomar_widgets::qt {
namespace {

QAccessible::Role RoleOf(Look look) {
  switch (look) {
    case Look::kCaption:
      return QAccessible::StaticText;
    case Look::kNone:
    case Look::kSeparator:
      return QAccessible::Separator;
    case Look::kSwatch:
    case Look::kRadio:
      return QAccessible::RadioButton;
    case Look::kCheck:
      return QAccessible::CheckBox;
    default:
      return QAccessible::MenuItem;
  }
}

// A row by its place. The view may get other rows or go: then it is not there.
class AccessibleRow : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleRow(RowView& view, int index) : view_(&view), index_(index) {}

  bool isValid() const override { return Row() != nullptr; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override {
    return view_ != nullptr ? view_->window()->windowHandle() : nullptr;
  }
  QAccessibleInterface* parent() const override {
    return view_ != nullptr ? QAccessible::queryAccessibleInterface(view_.data()) : nullptr;
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    const OwnedButton* row = Row();
    if (row == nullptr) {
      return {};
    }
    switch (kind) {
      case QAccessible::Name:
        return NameOf(*row);
      case QAccessible::Description:
        return QString::fromStdString(row->extra_text);
      default:
        return {};
    }
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QRect rect() const override {
    if (view_ == nullptr) {
      return {};
    }
    const QRect area = view_->AreaOf(static_cast<std::size_t>(index_));
    return {view_->mapToGlobal(area.topLeft()), area.size()};
  }

  QAccessible::Role role() const override {
    const OwnedButton* row = Row();
    return row != nullptr ? RoleOf(LookOf(*row)) : QAccessible::NoRole;
  }

  QAccessible::State state() const override;

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override {
    return view_ != nullptr && view_->CanPick(index_) ? QStringList{pressAction()} : QStringList{};
  }
  void doAction(const QString& name) override {
    if (name == pressAction() && view_ != nullptr && view_->CanPick(index_)) {
      view_->on_pick(static_cast<std::size_t>(index_));
    }
  }
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

 private:
  const OwnedButton* Row() const {
    const auto index = static_cast<std::size_t>(index_);
    return view_ != nullptr && index < view_->AllRows().size() ? &view_->AllRows()[index] : nullptr;
  }

  QPointer<RowView> view_;
  int index_;
};

QAccessible::State AccessibleRow::state() const {
  QAccessible::State state;
  const OwnedButton* row = Row();
  if (row == nullptr) {
    state.invalid = true;
    return state;
  }
  const auto index = static_cast<std::size_t>(index_);
  const QRect area = view_->AreaOf(index);
  state.invisible = area.isEmpty() || !view_->isVisible();
  state.offscreen = !state.invisible && (area & view_->visibleRegion().boundingRect()).isEmpty();
  state.disabled = row->Has(VELLOMAR_LORIMEL::kStatusDisabled);
  state.focusable = view_->CanPick(index_);
  state.focused = view_->Current() == index_ && view_->hasFocus();
  state.checked = view_->CanPick(index_) && IsChecked(view_->AllRows(), index);
  const Look look = LookOf(*row);
  state.checkable =
      state.checked || look == Look::kRadio || look == Look::kCheck || look == Look::kSwatch;
  return state;
}

}  // namespace

AccessibleRows::AccessibleRows(RowView& view) : QAccessibleWidget(&view, QAccessible::List) {}

AccessibleRows::~AccessibleRows() {
  for (const QAccessible::Id id : std::as_const(children_)) {
    QAccessible::deleteAccessibleInterface(id);
  }
}

int AccessibleRows::childCount() const {
  return static_cast<int>(View().AllRows().size());
}

QAccessibleInterface* AccessibleRows::child(int index) const {
  if (index < 0 || index >= childCount()) {
    return nullptr;
  }
  auto found = children_.constFind(index);
  if (found == children_.constEnd()) {
    found = children_.insert(
        index, QAccessible::registerAccessibleInterface(new AccessibleRow(View(), index)));
  }
  return QAccessible::accessibleInterface(*found);
}

QAccessibleInterface* AccessibleRows::childAt(int x, int y) const {
  return child(View().RowAt(View().mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* AccessibleRows::focusChild() const {
  return View().hasFocus() ? child(View().Current()) : nullptr;
}

int AccessibleRows::indexOfChild(const QAccessibleInterface* child) const {
  const auto found =
      std::find_if(children_.keyValueBegin(), children_.keyValueEnd(), [child](const auto& entry) {
        return QAccessible::accessibleInterface(entry.second) == child;
      });
  return found != children_.keyValueEnd() ? (*found).first : -1;
}

}  // namespace vellomar_widgets::qt
