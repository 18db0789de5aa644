#pragma once

#include <functional>

class QTextDocument;

namespace engine {

// The margins, line heights and tab stops that the layout derives from a paragraph's own values
// are no edit of the user's. They join the edit before them in the undo history, so that one
// undo takes back both; with no edit before them they stay out of the history.
class TDerivedFormats {
public:
    static void change(QTextDocument& text, const std::function<void()>& changes);
};

} // namespace engine
