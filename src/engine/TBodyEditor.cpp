#include "TBodyEditor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTextDocument>
#include <array>

namespace engine {

namespace {

constexpr QChar kParagraphSeparator(0x2029);
constexpr QChar kLineSeparator(0x2028);
constexpr QChar kObjectReplacement(0xfffc);

struct TKeyMove {
    QKeySequence::StandardKey key;
    QTextCursor::MoveOperation operation;
    bool extend;
};

constexpr std::array kKeyMoves{
    TKeyMove{QKeySequence::MoveToNextChar, QTextCursor::NextCharacter, false},
    TKeyMove{QKeySequence::MoveToPreviousChar, QTextCursor::PreviousCharacter, false},
    TKeyMove{QKeySequence::MoveToNextWord, QTextCursor::NextWord, false},
    TKeyMove{QKeySequence::MoveToPreviousWord, QTextCursor::PreviousWord, false},
    TKeyMove{QKeySequence::MoveToNextLine, QTextCursor::Down, false},
    TKeyMove{QKeySequence::MoveToPreviousLine, QTextCursor::Up, false},
    TKeyMove{QKeySequence::MoveToStartOfLine, QTextCursor::StartOfLine, false},
    TKeyMove{QKeySequence::MoveToEndOfLine, QTextCursor::EndOfLine, false},
    TKeyMove{QKeySequence::MoveToStartOfBlock, QTextCursor::StartOfBlock, false},
    TKeyMove{QKeySequence::MoveToEndOfBlock, QTextCursor::EndOfBlock, false},
    TKeyMove{QKeySequence::MoveToStartOfDocument, QTextCursor::Start, false},
    TKeyMove{QKeySequence::MoveToEndOfDocument, QTextCursor::End, false},
    TKeyMove{QKeySequence::SelectNextChar, QTextCursor::NextCharacter, true},
    TKeyMove{QKeySequence::SelectPreviousChar, QTextCursor::PreviousCharacter, true},
    TKeyMove{QKeySequence::SelectNextWord, QTextCursor::NextWord, true},
    TKeyMove{QKeySequence::SelectPreviousWord, QTextCursor::PreviousWord, true},
    TKeyMove{QKeySequence::SelectNextLine, QTextCursor::Down, true},
    TKeyMove{QKeySequence::SelectPreviousLine, QTextCursor::Up, true},
    TKeyMove{QKeySequence::SelectStartOfLine, QTextCursor::StartOfLine, true},
    TKeyMove{QKeySequence::SelectEndOfLine, QTextCursor::EndOfLine, true},
    TKeyMove{QKeySequence::SelectStartOfBlock, QTextCursor::StartOfBlock, true},
    TKeyMove{QKeySequence::SelectEndOfBlock, QTextCursor::EndOfBlock, true},
    TKeyMove{QKeySequence::SelectStartOfDocument, QTextCursor::Start, true},
    TKeyMove{QKeySequence::SelectEndOfDocument, QTextCursor::End, true},
};

QString normalisedLineEnds(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    return text;
}

// Control characters such as those of Ctrl+letter are no text; the tab is.
bool isTypedText(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty())
        return false;
    for (const QChar c : text) {
        if (!c.isPrint() && c != u'\t')
            return false;
    }
    return true;
}

} // namespace

void TBodyEditor::attach(QTextDocument* text) {
    m_cursor = text ? QTextCursor(text) : QTextCursor();
    m_typing = false;
}

void TBodyEditor::setPosition(int position, bool extend) {
    if (!isAttached())
        return;
    const int last = m_cursor.document()->characterCount() - 1;
    m_cursor.setPosition(qBound(0, position, last),
                         extend ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    m_typing = false;
}

void TBodyEditor::selectWordAt(int position) {
    setPosition(position, false);
    m_cursor.select(QTextCursor::WordUnderCursor);
}

void TBodyEditor::selectAll() {
    m_cursor.select(QTextCursor::Document);
    m_typing = false;
}

// A selection collapses to its near end when the caret is moved by a character without Shift,
// as in every word processor.
void TBodyEditor::move(QTextCursor::MoveOperation operation, bool extend) {
    m_typing = false;
    if (m_cursor.hasSelection() && !extend) {
        if (operation == QTextCursor::NextCharacter || operation == QTextCursor::PreviousCharacter) {
            const int end =
                operation == QTextCursor::NextCharacter ? m_cursor.selectionEnd() : m_cursor.selectionStart();
            m_cursor.setPosition(end);
            return;
        }
    }
    m_cursor.movePosition(operation, extend ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
}

void TBodyEditor::type(const QString& text) {
    if (!isAttached() || text.isEmpty())
        return;
    if (m_typing)
        m_cursor.joinPreviousEditBlock();
    else
        m_cursor.beginEditBlock();
    m_cursor.insertText(text);
    m_cursor.endEditBlock();
    m_typing = true;
}

void TBodyEditor::insertPlainText(const QString& text) {
    if (!isAttached())
        return;
    m_typing = false;
    const QStringList lines = normalisedLineEnds(text).split(u'\n');
    m_cursor.beginEditBlock();
    m_cursor.removeSelectedText();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            m_cursor.insertBlock();
        m_cursor.insertText(lines[i]);
    }
    m_cursor.endEditBlock();
}

// The new paragraph keeps the paragraph and character format of the one it splits.
void TBodyEditor::insertParagraph() {
    if (!isAttached())
        return;
    m_typing = false;
    m_cursor.beginEditBlock();
    m_cursor.removeSelectedText();
    m_cursor.insertBlock();
    m_cursor.endEditBlock();
}

void TBodyEditor::insertLineBreak() {
    m_typing = false;
    if (isAttached())
        m_cursor.insertText(QString(kLineSeparator));
}

void TBodyEditor::deletePrevious() {
    m_typing = false;
    if (isAttached())
        m_cursor.deletePreviousChar();
}

void TBodyEditor::deleteNext() {
    m_typing = false;
    if (isAttached())
        m_cursor.deleteChar();
}

void TBodyEditor::deletePreviousWord() {
    removeWord(QTextCursor::PreviousWord);
}

void TBodyEditor::deleteNextWord() {
    removeWord(QTextCursor::NextWord);
}

void TBodyEditor::removeWord(QTextCursor::MoveOperation direction) {
    m_typing = false;
    if (!isAttached())
        return;
    if (!m_cursor.hasSelection())
        m_cursor.movePosition(direction, QTextCursor::KeepAnchor);
    m_cursor.removeSelectedText();
}

QString TBodyEditor::selectedText() const {
    QString text = m_cursor.selectedText();
    text.replace(kParagraphSeparator, u'\n');
    text.replace(kLineSeparator, u'\n');
    text.remove(kObjectReplacement);
    return text;
}

void TBodyEditor::copy() const {
    if (m_cursor.hasSelection())
        QGuiApplication::clipboard()->setText(selectedText());
}

void TBodyEditor::cut() {
    if (!m_cursor.hasSelection())
        return;
    copy();
    m_typing = false;
    m_cursor.removeSelectedText();
}

void TBodyEditor::paste() {
    const QString text = QGuiApplication::clipboard()->text();
    if (!text.isEmpty())
        insertPlainText(text);
}

bool TBodyEditor::undo() {
    m_typing = false;
    if (!isAttached() || !m_cursor.document()->isUndoAvailable())
        return false;
    m_cursor.document()->undo(&m_cursor);
    return true;
}

bool TBodyEditor::redo() {
    m_typing = false;
    if (!isAttached() || !m_cursor.document()->isRedoAvailable())
        return false;
    m_cursor.document()->redo(&m_cursor);
    return true;
}

TBodyEditor::TResult TBodyEditor::handleKey(const QKeyEvent& event) {
    if (!isAttached())
        return TResult::Ignored;
    const TResult moved = handleMovement(event);
    return moved != TResult::Ignored ? moved : handleEditing(event);
}

TBodyEditor::TResult TBodyEditor::handleMovement(const QKeyEvent& event) {
    for (const TKeyMove& move : kKeyMoves) {
        if (event.matches(move.key)) {
            this->move(move.operation, move.extend);
            return TResult::Moved;
        }
    }
    if (event.matches(QKeySequence::SelectAll)) {
        selectAll();
        return TResult::Moved;
    }
    if (event.matches(QKeySequence::Copy)) {
        copy();
        return TResult::Moved;
    }
    return TResult::Ignored;
}

TBodyEditor::TResult TBodyEditor::handleEditing(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Cut))
        cut();
    else if (event.matches(QKeySequence::Paste))
        paste();
    else if (event.matches(QKeySequence::Undo))
        undo();
    else if (event.matches(QKeySequence::Redo))
        redo();
    else if (event.matches(QKeySequence::DeleteStartOfWord))
        deletePreviousWord();
    else if (event.matches(QKeySequence::DeleteEndOfWord))
        deleteNextWord();
    else if (event.matches(QKeySequence::Delete))
        deleteNext();
    else if (event.key() == Qt::Key_Backspace && !(event.modifiers() & Qt::ControlModifier))
        deletePrevious();
    else if (event.matches(QKeySequence::InsertParagraphSeparator))
        insertParagraph();
    else if (event.matches(QKeySequence::InsertLineSeparator))
        insertLineBreak();
    else if (isTypedText(event))
        type(event.text());
    else
        return TResult::Ignored;
    return TResult::Edited;
}

} // namespace engine
