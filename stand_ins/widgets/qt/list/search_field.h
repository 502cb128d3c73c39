// SPDX-License-Identifier: MIT
// The field above many participants that narrows them down to those with a name like it.
//
//     auto* search = new SearchField(list);
//     QObject::connect(search, &QLineEdit::textChanged, ...);
#pragma once

#include <QLineEdit>

namespace vellomar_widgets::qt {

class SearchField : public QLineEdit {
 public:
  explicit SearchField(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vellomar_widgets::qt
