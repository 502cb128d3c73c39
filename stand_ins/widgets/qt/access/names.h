// SPDX-License-Identifier: MIT
// What a control is called where it shows no text: for assistive technology.
//
//     setAccessibleName(NameOf(record));
#pragma once

#include <QString>

#include "model/owned_button.h"

namespace vellomar_widgets::qt {

// The record's label, else its tool-tip, else the English name of its key; empty where a key has
// none.
QString NameOf(const OwnedButton& record);

}  // namespace vellomar_widgets::qt
