#pragma once

#include <QString>
#include <QTextCursor>

class QKeyEvent;
class QTextDocument;

namespace engine {

// The caret and the selection in the body of a letter, and what the keyboard does there:
// moving, selecting, typing, deleting, the clipboard in plain text and the text's undo stack.
// Headers, footers and text boxes are not edited. The page keys need the pages and stay with
// the view.
class TBodyEditor {
public:
    enum class TResult { Ignored, Moved, Edited };

    // the caret goes to the start; nullptr lets go of the text
    void attach(QTextDocument* text);
    bool isAttached() const { return !m_cursor.isNull(); }
    const QTextCursor& cursor() const { return m_cursor; }
    int position() const { return m_cursor.position(); }
    bool hasSelection() const { return m_cursor.hasSelection(); }
    int selectionStart() const { return m_cursor.selectionStart(); }
    int selectionEnd() const { return m_cursor.selectionEnd(); }

    // extend keeps the anchor where it is, so that the selection grows or shrinks
    void setPosition(int position, bool extend);
    void selectWordAt(int position);
    void selectAll();
    void move(QTextCursor::MoveOperation operation, bool extend);

    // A run of typing is one step on the undo stack; the text takes the format at the caret
    // and replaces the selection.
    void type(const QString& text);
    // each line end of the text starts a new paragraph
    void insertPlainText(const QString& text);
    void insertParagraph();
    void insertLineBreak();
    void deletePrevious();
    void deleteNext();
    void deletePreviousWord();
    void deleteNextWord();

    // the selection in plain text, one line per paragraph or line break
    QString selectedText() const;
    void copy() const;
    void cut();
    void paste();
    bool undo();
    bool redo();

    TResult handleKey(const QKeyEvent& event);

private:
    TResult handleMovement(const QKeyEvent& event);
    TResult handleEditing(const QKeyEvent& event);
    void removeWord(QTextCursor::MoveOperation direction);

    QTextCursor m_cursor;
    // the last step was typing, and the next typed text joins it on the undo stack
    bool m_typing = false;
};

} // namespace engine
