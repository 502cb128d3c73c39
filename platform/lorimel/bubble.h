// SPDX-License-Identifier: MIT
// A bubble that points at a button: a hint, a chat message or a question.
//
//     auto* bubble = new Bubble({.text = "You are muted"});
//     bubble->on_closed = [] { ... };
//     bubble->ShowAt(button_area, display_area);
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <functional>

class QBoxLayout;

namespace lorimel_qt {

struct BubbleContent {
  QString title{};    // a person's name or a question's title; empty: none
  QString text;       //
  QString confirm{};  // the label of a question's button
  bool has_avatar = false;
  QString avatar_path{};     // no picture there: the person's initial
  bool is_question = false;  // the bubble stays until it is answered
};

class Bubble : public QWidget {
 public:
  explicit Bubble(const BubbleContent& content);

  std::function<void()> on_confirm;
  std::function<void()> on_closed;  // by the user or after its time

  // Below the button, above it where there is more room.
  void ShowAt(const QRect& button, const QRect& display);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void AddTexts(const BubbleContent& content, QBoxLayout& column);

  bool stays_;
  bool arrow_on_top_ = true;
  int arrow_x_ = 0;
};

}  // namespace lorimel_qt
