#pragma once

#include <Qt>

namespace norvik {

// With exactly Ctrl held, E, F, N, S, plus (main or numeric keypad) and Enter are no
// short-cuts of a form: the focused control has its own list commands on them.
bool IsKeyForFocusedControl(int AKey, Qt::KeyboardModifiers AModifiers);

} // namespace norvik
