// SPDX-License-Identifier: MIT
// A bubble that points at a button: a hint, a chat message or a question.
//
//     auto* bubble = new BubbleWindow({.text = "You are muted"});
//     bubble->on_closed = [] { ... };
//     bubble->ShowAt(button_area, display_area);
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

class QBoxLayout;
class QPushButton;

namespace vellomar_widgets::qt {

struct BubbleContent {
  QString title{};    // a person's name or a question's title; empty: none
  QString text;       //
  QString confirm{};  // the label of a question's button
  bool has_avatar = false;
  QString avatar_path{};     // no picture there: the person's initial
  bool is_question = false;  // the bubble stays until it is answered
  bool is_warning = false;
  bool stays = false;  // until the user closes it
  int life_ms = 0;     // else
};

class BubbleWindow : public QWidget {
 public:
  explicit BubbleWindow(const BubbleContent& content);

  std::function<void()> on_confirm;
  std::function<void()> on_closed;  // by the user or after its time
  std::function<void()> on_escape;  // the user goes back to the bar

  bool IsQuestion() const { return confirm_ != nullptr; }

  // Below the button, above it where there is more room.
  void ShowAt(const QRect& button, const QRect& display);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void AddMark(const BubbleContent& content, QBoxLayout& row);
  void AddTexts(const BubbleContent& content, QBoxLayout& column);
  void AddClose(const BubbleContent& content, QBoxLayout& row);

  QPushButton* confirm_ = nullptr;
  bool has_close_;
  bool is_warning_;
  bool arrow_on_top_ = true;
  int arrow_x_ = 0;
};

}  // namespace vellomar_widgets::qt
