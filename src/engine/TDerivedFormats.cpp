#include "TDerivedFormats.h"

#include <QTextCursor>
#include <QTextDocument>

namespace engine {

void TDerivedFormats::change(QTextDocument& text, const std::function<void()>& changes) {
    if (!text.isUndoRedoEnabled()) {
        changes();
    } else if (text.isUndoAvailable()) {
        QTextCursor bracket(&text);
        bracket.joinPreviousEditBlock();
        changes();
        bracket.endEditBlock();
    } else {
        text.setUndoRedoEnabled(false);
        changes();
        text.setUndoRedoEnabled(true);
    }
}

} // namespace engine
