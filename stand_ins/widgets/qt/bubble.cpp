// SPDX-License-Identifier: MIT
#include "qt/bubble.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainterPath>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "qt/look/avatar.h"
#include "qt/look/icons.h"
#include "qt/look/screen.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

constexpr int kArrow = 7;
constexpr int kPadding = 11;
constexpr int kSidePadding = 14;
constexpr int kMostTextWidth = 280;
constexpr int kAvatar = 34;
constexpr int kMostLines = 6;

constexpr char kButtonStyle[] =
    "QPushButton { background: #d3363c; color: white; border: none; border-radius: 6px;"
    " padding: 6px 16px; }"
    "QPushButton:focus { border: 2px solid #f0f2f5; padding: 4px 14px; }"
    "QPushButton:hover { background: #d93a40; }"
    "QPushButton:pressed { background: #b52a30; }";
constexpr char kCloseStyle[] =
    "QPushButton { background: transparent; border: none; border-radius: 5px; }"
    "QPushButton:focus { border: 2px solid #f0f2f5; }"
    "QPushButton:hover { background: rgba(255, 255, 255, 26); }"
    "QPushButton:pressed { background: rgba(255, 255, 255, 46); }";

// A stretch of a text as tall as a bubble may be.
QString Shortened(const QString& text, const QFontMetrics& metrics) {
  return metrics.elidedText(text, Qt::ElideRight, kMostTextWidth * kMostLines * 9 / 10);
}

QLabel* MakeLabel(const QString& text, const QFont& font, const QColor& color) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  const QString shown = Shortened(text, QFontMetrics(font));
  label->setText(shown);
  if (shown != text) {
    label->setToolTip(style::ToolTip(text));
  }
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, color);
  label->setPalette(palette);
  if (QFontMetrics(font).horizontalAdvance(shown) > kMostTextWidth) {
    label->setWordWrap(true);
    label->setFixedWidth(kMostTextWidth);
  }
  return label;
}

class Avatar : public QWidget {
 public:
  Avatar(QString path, QString name) : path_(std::move(path)), name_(std::move(name)) {
    setFixedSize(kAvatar, kAvatar);
    setAccessibleName(name_);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PaintAvatar(painter, rect(), path_, name_);
  }

 private:
  QString path_;
  QString name_;
};

class WarningSign : public QWidget {
 public:
  WarningSign() { setFixedSize(style::kIcon, style::kIcon); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PaintIcon(painter, QStringLiteral("Warning"), rect());
  }
};

class CloseButton : public QPushButton {
 public:
  explicit CloseButton(Qt::FocusPolicy policy) {
    setFixedSize(20, 20);
    setFocusPolicy(policy);
    setAccessibleName(QStringLiteral("Close"));
    setStyleSheet(QLatin1String(kCloseStyle));
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    PaintIcon(painter, QStringLiteral("Close"), QRectF(rect()).adjusted(4, 4, -4, -4));
  }
};

}  // namespace

BubbleWindow::BubbleWindow(const BubbleContent& content)
    : QWidget(nullptr, content.is_question ? FloatingWindow()
                                           : FloatingWindow() | Qt::WindowDoesNotAcceptFocus),
      has_close_(content.is_question || content.stays),
      is_warning_(content.is_warning) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating, !content.is_question);
  setAccessibleName(content.title.isEmpty() ? content.text : content.title);
  setAccessibleDescription(content.title.isEmpty() ? QString() : content.text);
  const QString direction = content.text.isEmpty() ? content.title : content.text;
  setLayoutDirection(direction.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  auto* row = new QHBoxLayout(this);
  row->setSpacing(10);
  row->setContentsMargins(0, 0, 0, 0);  // until the bubble knows which way it points
  AddMark(content, *row);
  auto* column = new QVBoxLayout;
  column->setSpacing(4);
  row->addLayout(column);
  AddTexts(content, *column);
  AddClose(content, *row);
}

void BubbleWindow::AddMark(const BubbleContent& content, QBoxLayout& row) {
  if (content.has_avatar) {
    row.addWidget(new Avatar(content.avatar_path, content.title), 0, Qt::AlignTop);
  } else if (content.is_warning) {
    row.addWidget(new WarningSign, 0, Qt::AlignTop);
  }
}

void BubbleWindow::AddTexts(const BubbleContent& content, QBoxLayout& column) {
  if (!content.title.isEmpty()) {
    column.addWidget(
        MakeLabel(content.title, style::Font(style::kRowFont, QFont::DemiBold), style::kText));
  }
  column.addWidget(MakeLabel(content.text, style::Font(style::kRowFont),
                             content.title.isEmpty() ? style::kText : style::kQuietText));
  if (!content.confirm.isEmpty()) {
    confirm_ =
        new QPushButton(QString(content.confirm).replace(QLatin1Char('&'), QLatin1String("&&")));
    confirm_->setFont(style::Font(style::kRowFont));
    confirm_->setAccessibleName(content.confirm);
    confirm_->setFocusPolicy(Qt::TabFocus);
    confirm_->setStyleSheet(QLatin1String(kButtonStyle));
    QObject::connect(confirm_, &QPushButton::clicked, this, [this] { on_confirm(); });
    column.addSpacing(6);
    column.addWidget(confirm_, 0, Qt::AlignTrailing);
  }
}

void BubbleWindow::AddClose(const BubbleContent& content, QBoxLayout& row) {
  if (has_close_) {
    auto* close = new CloseButton(content.is_question ? Qt::TabFocus : Qt::NoFocus);
    QObject::connect(close, &QPushButton::clicked, this, [this] { on_closed(); });
    row.addWidget(close, 0, Qt::AlignTop);
  } else {
    // Owned: one that the event dispatcher keeps would outlive the library, and its code.
    auto* timer = new QTimer(this);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, this, [this] { on_closed(); });
    timer->start(content.life_ms);
  }
}

void BubbleWindow::ShowAt(const QRect& button, const QRect& display) {
  const int height = sizeHint().height() + 2 * kPadding + kArrow;
  const int below = display.bottom() - button.bottom();
  arrow_on_top_ = below >= height || below >= button.top() - display.top();
  layout()->setContentsMargins(kSidePadding, kPadding + (arrow_on_top_ ? kArrow : 0), kSidePadding,
                               kPadding + (arrow_on_top_ ? 0 : kArrow));
  adjustSize();
  QRect place(QPoint(0, 0), size());
  place.moveTopLeft({button.center().x() - width() / 2,
                     arrow_on_top_ ? button.bottom() + 1 : button.top() - height});
  place = MovedInto(place, display);
  move(place.topLeft());
  constexpr int kLeastX = style::kWindowRadius + kArrow;
  arrow_x_ =
      std::clamp(button.center().x() - place.left(), kLeastX, std::max(kLeastX, width() - kLeastX));
  const bool appears = !isVisible();
  show();
  if (appears && confirm_ != nullptr) {
    activateWindow();
    confirm_->setFocus(Qt::PopupFocusReason);
  }
  if (appears) {
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }
}

void BubbleWindow::keyPressEvent(QKeyEvent* event) {
  auto* const focused = qobject_cast<QPushButton*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Escape:
      on_escape();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (focused != nullptr && !event->isAutoRepeat()) {
        focused->click();
      }
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void BubbleWindow::mouseReleaseEvent(QMouseEvent* /*event*/) {
  if (!has_close_) {
    on_closed();
  }
}

void BubbleWindow::paintEvent(QPaintEvent* /*event*/) {
  const QRectF panel = QRectF(rect()).adjusted(0.5, arrow_on_top_ ? kArrow + 0.5 : 0.5, -0.5,
                                               arrow_on_top_ ? -0.5 : -kArrow - 0.5);
  const double base = arrow_on_top_ ? panel.top() + 1 : panel.bottom() - 1;
  const double tip = arrow_on_top_ ? panel.top() - kArrow + 1 : panel.bottom() + kArrow - 1;
  QPainterPath arrow;
  arrow.addPolygon(
      {{arrow_x_ - kArrow * 1.0, base}, {arrow_x_ * 1.0, tip}, {arrow_x_ + kArrow * 1.0, base}});
  QPainterPath outline;
  outline.addRoundedRect(panel, style::kWindowRadius, style::kWindowRadius);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(is_warning_ ? style::kFair : style::kBorder, 1));
  painter.setBrush(style::kBackground);
  painter.drawPath(outline.united(arrow));
}

}  // namespace vellomar_widgets::qt
