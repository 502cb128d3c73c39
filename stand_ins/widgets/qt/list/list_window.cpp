// SPDX-License-Identifier: MIT
#include "qt/list/list_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

#include "qt/list/search_field.h"
#include "qt/look/screen.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

constexpr int kPadding = 7;
constexpr int kDistance = 6;  // to the bar
constexpr int kScrollBarWidth = 8;
constexpr int kMostWithoutSearch = 8;  // people
constexpr int kSearchHeight = 30;
constexpr int kSearchGap = 7;

constexpr char kScrollStyle[] =
    "QScrollArea { background: transparent; border: none; }"
    "QScrollBar:vertical { background: transparent; width: 8px; margin: 0; }"
    "QScrollBar::handle:vertical { background: #79828f; border-radius: 3px; min-height: 24px; }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }";

}  // namespace

ListWindow::ListWindow(Rows rows, const ListLook& look)
    : QWidget(nullptr, FloatingWindow()),
      scroll_(new QScrollArea(this)),
      view_(new RowView(std::move(rows), look.direction)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAccessibleName(look.name);
  view_->setAccessibleName(look.name);
  scroll_->setStyleSheet(QLatin1String(kScrollStyle));
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->viewport()->setAutoFillBackground(false);
  scroll_->setWidget(view_);
  view_->setAutoFillBackground(false);
  view_->on_pick = [this](std::size_t row) { on_pick(row); };
  view_->on_current_moved = [this](const QRect& area) {
    scroll_->ensureVisible(area.center().x(), area.center().y(), 0, area.height());
  };
  const auto people = std::count_if(AllRows().begin(), AllRows().end(),
                                    [](const auto& row) { return LookOf(row) == Look::kPerson; });
  if (people > kMostWithoutSearch) {
    search_ = new SearchField(this);
    QObject::connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
      view_->SetFilter(text);
      scroll_->verticalScrollBar()->setValue(0);
    });
    view_->SetTabMoves(false);
  }
}

int ListWindow::SearchHeight() const {
  return search_ != nullptr ? kSearchHeight + 2 * kSearchGap : 0;
}

void ListWindow::SetRows(Rows rows, Qt::LayoutDirection direction) {
  view_->setLayoutDirection(direction);
  view_->SetRows(std::move(rows));
  Place();
}

void ListWindow::ShowAt(const QRect& opener, const QRect& bar, const QRect& display) {
  MoveTo(opener, bar, display);
  qApp->installEventFilter(this);
  show();
  activateWindow();
  view_->setFocus(Qt::OtherFocusReason);
}

void ListWindow::MoveTo(const QRect& opener, const QRect& bar, const QRect& display) {
  if (opener_ != opener || bar_ != bar || display_ != display) {
    opener_ = opener;
    bar_ = bar;
    display_ = display;
    Place();
  }
}

void ListWindow::Place() {
  const QSize rows = view_->sizeHint();
  const int below = display_.bottom() - bar_.bottom() - kDistance;
  const int above = bar_.top() - display_.top() - kDistance;
  const int wanted = rows.height() + SearchHeight() + 2 * kPadding;
  const bool drops = below >= wanted || below >= above;
  const int height = std::max(std::min(wanted, drops ? below : above), 1);
  const bool scrolls = height < wanted;
  const int width = rows.width() + (scrolls ? kScrollBarWidth : 0);
  const bool mirrored = view_->layoutDirection() == Qt::RightToLeft;
  const int left = mirrored ? opener_.right() + 1 - (width + 2) : opener_.left();
  const QRect place(left, drops ? bar_.bottom() + kDistance : bar_.top() - kDistance - height,
                    width + 2, height);
  setLayoutDirection(view_->layoutDirection());
  setGeometry(MovedInto(place, display_));
  if (search_ != nullptr) {
    search_->setGeometry(kPadding + 1, kSearchGap + 1, this->width() - 2 * kPadding - 2,
                         kSearchHeight);
  }
  const int top = std::max(kPadding, SearchHeight());
  scroll_->setGeometry(1, top, width, height - top - kPadding);
  view_->resize(rows);
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

// Comes from the search field and the rows, with what they have no use for.
void ListWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    on_escape();
  } else if (search_ == nullptr) {
    QWidget::keyPressEvent(event);
  } else if (search_->hasFocus()) {
    view_->HandleKey(*event);
  } else if (!event->text().isEmpty() && event->text().at(0).isPrint()) {
    search_->setFocus(Qt::OtherFocusReason);
    QCoreApplication::sendEvent(search_, event);
  }
}

void ListWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style::PaintPanel(painter, rect());
}

}  // namespace vellomar_widgets::qt
