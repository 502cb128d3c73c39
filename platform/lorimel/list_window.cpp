// SPDX-License-Identifier: MIT
#include "list_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

#include "screen.h"
#include "style.h"

namespace lorimel_qt {
namespace {

constexpr int kPadding = 7;
constexpr int kDistance = 6;  // to the bar
constexpr int kScrollBarWidth = 8;

constexpr char kScrollStyle[] =
    "QScrollArea { background: transparent; border: none; }"
    "QScrollBar:vertical { background: transparent; width: 8px; margin: 0; }"
    "QScrollBar::handle:vertical { background: #59616c; border-radius: 3px; min-height: 24px; }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

}  // namespace

ListWindow::ListWindow(std::vector<vellomar_widgets::OwnedButton> rows)
    : QWidget(nullptr, FloatingWindow()),
      scroll_(new QScrollArea(this)),
      view_(new RowView(std::move(rows), nullptr)) {
  setAttribute(Qt::WA_TranslucentBackground);
  scroll_->setStyleSheet(QLatin1String(kScrollStyle));
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->viewport()->setAutoFillBackground(false);
  scroll_->setWidget(view_);
  view_->setAutoFillBackground(false);
  scroll_->setLayoutDirection(view_->layoutDirection());
  view_->on_pick = [this](std::size_t row) { on_pick(row); };
  view_->on_current_moved = [this](const QRect& area) {
    scroll_->ensureVisible(area.center().x(), area.center().y(), 0, area.height());
  };
}

void ListWindow::ShowAt(const QRect& opener, const QRect& bar, const QRect& display) {
  opener_ = opener;
  const QSize rows = view_->sizeHint();
  const int below = display.bottom() - bar.bottom() - kDistance;
  const int above = bar.top() - display.top() - kDistance;
  const int wanted = rows.height() + 2 * kPadding;
  const bool drops = below >= wanted || below >= above;
  const int height = std::max(std::min(wanted, drops ? below : above), 1);
  const bool scrolls = height < wanted;
  const int width = rows.width() + (scrolls ? kScrollBarWidth : 0);
  const int left = view_->layoutDirection() == Qt::RightToLeft ? opener.right() + 1 - (width + 2)
                                                               : opener.left();
  const QRect place(left, drops ? bar.bottom() + kDistance : bar.top() - kDistance - height,
                    width + 2, height);
  setGeometry(MovedInto(place, display));
  scroll_->setGeometry(1, kPadding, width, height - 2 * kPadding);
  view_->resize(rows);
  qApp->installEventFilter(this);
  show();
  activateWindow();
}

bool ListWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) {
    // Which window comes next is known only after this event.
    QTimer::singleShot(0, this, [this] {
      if (isVisible() && QApplication::activeWindow() == nullptr) {
        on_dismiss();
      }
    });
  }
  return QWidget::event(event);
}

bool ListWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && isVisible() && watched->isWidgetType()) {
    const QPoint point = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    if (!geometry().contains(point) && !opener_.contains(point)) {
      on_dismiss();
    }
  }
  return QWidget::eventFilter(watched, event);
}

void ListWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      on_dismiss();
      break;
    case Qt::Key_Down:
    case Qt::Key_Right:
      view_->MoveCurrent(1);
      break;
    case Qt::Key_Up:
    case Qt::Key_Left:
      view_->MoveCurrent(-1);
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      view_->PickCurrent();
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void ListWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style::PaintPanel(painter, rect());
}

}  // namespace lorimel_qt
