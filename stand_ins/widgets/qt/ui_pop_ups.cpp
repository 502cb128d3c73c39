// SPDX-License-Identifier: MIT
// The view's pop-up windows: drop-down windows and bubbles.
#include <utility>

#include "model/library.h"
#include "model/user_action.h"
#include "qt/access/names.h"
#include "qt/look/screen.h"
#include "qt/look/style.h"
#include "qt/ui.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr QMargins kMargins(8, 8, 8, 8);  // between a list and the edge of the screen

BubbleContent ContentOf(const Bubble& bubble) {
  return {.title = style::Label(bubble.title),
          .text = style::Message(bubble.text),
          .confirm = style::Label(bubble.confirm),
          .has_avatar = bubble.has_avatar,
          .avatar_path = style::Label(bubble.avatar_path),
          .is_question = bubble.is_question,
          .is_warning = bubble.is_warning,
          .stays = bubble.stays,
          .life_ms = bubble.life_ms};
}

}  // namespace

Window Ui::MakeList() {
  const List& list = *model.OpenList();
  const EventKey opener = list_opener_ = list.opener;
  BarWindow* bar = BarWith(opener);
  const bool by_key = bar->IsOpenerFocused(opener) && bar->isActiveWindow();
  list_ = new ListWindow(
      list.rows, {.name = NameOf(*model.Record(opener)), .direction = bar->layoutDirection()});
  list_->on_pick = [this](std::size_t row) { OnPick(row); };
  list_->on_dismiss = [this] {
    ObserveUser("closeList", list_opener_);
    model.CloseList();
  };
  list_->on_escape = [this, opener] {
    ObserveUser("closeList", opener);
    model.CloseList();
    BackToBar(opener);
  };
  list_->ShowAt(bar->OpenerArea(opener), bar->geometry(), bar->Area() - kMargins);
  bar->SetOpen(opener);
  if (by_key) {
    list_->FocusFirstRow();
  }
  return Register(*list_);
}

void Ui::OnPick(std::size_t row) {
  const OwnedButton& chosen = list_->AllRows()[row];
  if (CanPress(chosen)) {
    picked_by_key_ = list_->isActiveWindow() && list_->View().IsCurrentByKey();
    ObserveUser("pick", chosen.key, chosen.value_text.c_str());
    model.Pick(row);
    picked_by_key_ = false;
  }
}

void Ui::RefreshList() {
  list_->SetRows(model.OpenList()->rows, BarWith(list_opener_)->layoutDirection());
}

void Ui::CloseList() {
  Discard(std::exchange(list_, nullptr));
  for (BarWindow* bar : {bar_, sketch_bar_}) {
    if (bar != nullptr) {
      bar->SetOpen(EventKey::GroupHeader);
    }
  }
  if (std::exchange(picked_by_key_, false)) {
    BackToBar(list_opener_);
  }
}

void Ui::BackToBar(EventKey opener) {
  if (BarWindow* bar = BarWith(opener); bar != nullptr) {
    bar->FocusOpener(opener);
  }
}

// Stays with a button that moves.
void Ui::FollowList() {
  const BarWindow* bar = list_ != nullptr ? BarWith(list_opener_) : nullptr;
  if (bar != nullptr) {
    list_->MoveTo(bar->OpenerArea(list_opener_), bar->geometry(), bar->Area() - kMargins);
  }
}

void Ui::MakeBubble() {
  CloseBubble();
  const Bubble& bubble = *model.OpenBubble();
  const EventKey key = bubble.button;
  if (const BarWindow* bar = BarWith(key); bar != nullptr) {
    bubble_at_ = *bar->AreaOf(key);
  } else {
    const QRect pixels(bubble.at.x, bubble.at.y, bubble.at.width, bubble.at.height);
    bubble_at_ = pixels.isEmpty() ? bar_->geometry() : ToLogical(pixels);
  }
  bubble_ = new BubbleWindow(ContentOf(bubble));
  bubble_->on_closed = [this] { model.CloseBubble(); };
  bubble_->on_confirm = [this] {
    ObserveUser("press", EventKey::LeaveSubRoom);
    model.Press(EventKey::LeaveSubRoom);
  };
  bubble_->on_escape = [this, key] {
    model.CloseBubble();
    BackToBar(key);
  };
  bubble_->ShowAt(bubble_at_, bar_->Area());
}

// Stays with a button that moves.
void Ui::FollowBubble() {
  const Bubble* bubble = bubble_ != nullptr ? model.OpenBubble() : nullptr;
  const BarWindow* bar = bubble != nullptr ? BarWith(bubble->button) : nullptr;
  if (bar == nullptr) {
    return;
  }
  if (const QRect area = *bar->AreaOf(bubble->button); area != bubble_at_) {
    bubble_at_ = area;
    bubble_->ShowAt(area, bar_->Area());
  }
}

void Ui::CloseBubble() {
  Discard(std::exchange(bubble_, nullptr));
}

}  // namespace vellomar_widgets::qt
