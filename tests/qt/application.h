// SPDX-License-Identifier: MIT
// A host's own Qt application, which the widget library then takes. It goes before the process
// does: the fonts that it holds would pass for leaks.
#pragma once

// Makes it where there is none, offscreen unless the environment says something else.
void BringApplication();
