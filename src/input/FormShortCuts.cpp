#include "FormShortCuts.h"

namespace norvik {

bool IsKeyForFocusedControl(int AKey, Qt::KeyboardModifiers AModifiers) {
    // the keypad flag only says where the key lies, not that another modifier is held
    if ((AModifiers & ~Qt::KeypadModifier) != Qt::ControlModifier)
        return false;
    switch (AKey) {
    case Qt::Key_E:
    case Qt::Key_F:
    case Qt::Key_N:
    case Qt::Key_S:
    case Qt::Key_Plus:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace norvik
