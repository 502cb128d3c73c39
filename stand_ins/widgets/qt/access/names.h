// SPDX-License-Identifier: MIT
// What a control is called where it shows no text: for assistive technology.
//
//     setAccessibleName(NameOf(record));
#pragma once

#include <QString>

#include "model/owned_button.h"

namespace lorimel_qt {

// The record's label, else its tool-tip, else the English name of its key; empty where a key has
// none.
QString NameOf(const vellomar_widgets::OwnedButton& record);

}  // namespace lorimel_qt
