#include "TBodyEditor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

using engine::TBodyEditor;

namespace {

QKeyEvent key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = QString()) {
    return QKeyEvent(QEvent::KeyPress, code, modifiers, text);
}

class BodyEditorFixture : public ::testing::Test {
protected:
    void SetUp() override {
        text.setPlainText(QStringLiteral("Erste Zeile\nZweite Zeile"));
        text.clearUndoRedoStacks();
        editor.attach(&text);
    }

    QTextDocument text;
    TBodyEditor editor;
};

struct TMoveCase {
    const char* name;
    int start;
    int code;
    Qt::KeyboardModifiers modifiers;
    int position;
    int anchor;
};

} // namespace

TEST_F(BodyEditorFixture, KeysMoveAndSelect) {
    // "Erste Zeile" holds positions 0 to 11; the second paragraph starts at 12
    const TMoveCase cases[] = {
        {"right", 3, Qt::Key_Right, Qt::NoModifier, 4, 4},
        {"left at start", 0, Qt::Key_Left, Qt::NoModifier, 0, 0},
        {"right over paragraph end", 11, Qt::Key_Right, Qt::NoModifier, 12, 12},
        {"shift right", 3, Qt::Key_Right, Qt::ShiftModifier, 4, 3},
        {"home", 8, Qt::Key_Home, Qt::NoModifier, 0, 0},
        {"end", 2, Qt::Key_End, Qt::NoModifier, 11, 11},
        {"shift end", 2, Qt::Key_End, Qt::ShiftModifier, 11, 2},
        {"ctrl end", 2, Qt::Key_End, Qt::ControlModifier, 24, 24},
        {"ctrl home", 20, Qt::Key_Home, Qt::ControlModifier, 0, 0},
        {"ctrl right", 0, Qt::Key_Right, Qt::ControlModifier, 6, 6},
        {"ctrl shift left", 9, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier, 6, 9},
    };
    for (const TMoveCase& c : cases) {
        editor.setPosition(c.start, false);
        const QKeyEvent event = key(c.code, c.modifiers);
        EXPECT_EQ(editor.handleKey(event), TBodyEditor::TResult::Moved) << c.name;
        EXPECT_EQ(editor.position(), c.position) << c.name;
        EXPECT_EQ(editor.cursor().anchor(), c.anchor) << c.name;
    }
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Erste Zeile\nZweite Zeile"));
}

TEST_F(BodyEditorFixture, ArrowWithoutShiftCollapsesTheSelectionToItsNearEnd) {
    editor.setPosition(2, false);
    editor.setPosition(8, true);
    editor.handleKey(key(Qt::Key_Left));
    EXPECT_EQ(editor.position(), 2);
    EXPECT_FALSE(editor.hasSelection());
    editor.setPosition(8, true);
    editor.handleKey(key(Qt::Key_Right));
    EXPECT_EQ(editor.position(), 8);
}

TEST_F(BodyEditorFixture, TypingInsertsWithTheFormatAtTheCaretAndIsOneUndoStep) {
    QTextCursor bold(&text);
    bold.setPosition(6);
    bold.setPosition(11, QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    bold.mergeCharFormat(format);
    text.clearUndoRedoStacks();

    editor.setPosition(8, false);
    for (const char* piece : {"a", "b", "c"})
        EXPECT_EQ(editor.handleKey(key(Qt::Key_A, Qt::NoModifier, QString::fromLatin1(piece))),
                  TBodyEditor::TResult::Edited);
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Erste Zeabcile\nZweite Zeile"));
    QTextCursor probe(&text);
    probe.setPosition(10);
    EXPECT_EQ(probe.charFormat().fontWeight(), QFont::Bold);

    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Erste Zeile\nZweite Zeile"));
    EXPECT_EQ(editor.position(), 8);
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Erste Zeabcile\nZweite Zeile"));
}

TEST_F(BodyEditorFixture, TypingAfterAMoveIsAStepOfItsOwn) {
    editor.setPosition(0, false);
    editor.type(QStringLiteral("A"));
    editor.setPosition(4, false);
    editor.type(QStringLiteral("B"));
    editor.undo();
    EXPECT_EQ(text.toPlainText(), QStringLiteral("AErste Zeile\nZweite Zeile"));
    editor.undo();
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Erste Zeile\nZweite Zeile"));
    EXPECT_FALSE(editor.undo());
}

TEST_F(BodyEditorFixture, ControlCharactersAreNoText) {
    editor.setPosition(3, false);
    EXPECT_EQ(editor.handleKey(key(Qt::Key_B, Qt::ControlModifier, QStringLiteral("\x02"))),
              TBodyEditor::TResult::Ignored);
    EXPECT_EQ(editor.handleKey(key(Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"))),
              TBodyEditor::TResult::Ignored);
    EXPECT_EQ(editor.handleKey(key(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"))),
              TBodyEditor::TResult::Edited);
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Ers\tte Zeile\nZweite Zeile"));
}

TEST_F(BodyEditorFixture, EnterSplitsTheParagraphKeepingItsFormatAndBackspaceJoinsIt) {
    QTextBlockFormat indented;
    indented.setLeftMargin(40);
    QTextCursor(&text).mergeBlockFormat(indented);
    editor.setPosition(5, false);
    editor.handleKey(key(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r")));
    ASSERT_EQ(text.blockCount(), 3);
    EXPECT_EQ(text.firstBlock().text(), QStringLiteral("Erste"));
    EXPECT_EQ(text.firstBlock().next().text(), QStringLiteral(" Zeile"));
    EXPECT_EQ(text.firstBlock().next().blockFormat().leftMargin(), 40);
    editor.handleKey(key(Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b")));
    EXPECT_EQ(text.toPlainText(), QStringLiteral("Erste Zeile\nZweite Zeile"));
}

TEST_F(BodyEditorFixture, ShiftEnterBreaksTheLineInsideTheParagraph) {
    editor.setPosition(5, false);
    editor.handleKey(key(Qt::Key_Return, Qt::ShiftModifier, QStringLiteral("\r")));
    EXPECT_EQ(text.blockCount(), 2);
    EXPECT_EQ(text.firstBlock().text(), QStringLiteral("Erste") + QChar(0x2028) + QStringLiteral(" Zeile"));
}

TEST_F(BodyEditorFixture, DeleteKeysRemoveCharactersWordsOrTheSelection) {
    struct TCase {
        const char* name;
        int anchor;
        int position;
        int code;
        Qt::KeyboardModifiers modifiers;
        const char* expected;
    };
    const TCase cases[] = {
        {"backspace", 3, 3, Qt::Key_Backspace, Qt::NoModifier, "Erte Zeile\nZweite Zeile"},
        {"backspace at start", 0, 0, Qt::Key_Backspace, Qt::NoModifier, "Erste Zeile\nZweite Zeile"},
        {"delete", 3, 3, Qt::Key_Delete, Qt::NoModifier, "Erse Zeile\nZweite Zeile"},
        {"delete at end", 24, 24, Qt::Key_Delete, Qt::NoModifier, "Erste Zeile\nZweite Zeile"},
        {"delete joins paragraphs", 11, 11, Qt::Key_Delete, Qt::NoModifier, "Erste ZeileZweite Zeile"},
        {"selection", 2, 14, Qt::Key_Backspace, Qt::NoModifier, "Ereite Zeile"},
        {"ctrl backspace", 11, 11, Qt::Key_Backspace, Qt::ControlModifier, "Erste \nZweite Zeile"},
        {"ctrl delete", 0, 0, Qt::Key_Delete, Qt::ControlModifier, "Zeile\nZweite Zeile"},
    };
    for (const TCase& c : cases) {
        SetUp();
        editor.setPosition(c.anchor, false);
        editor.setPosition(c.position, true);
        editor.handleKey(key(c.code, c.modifiers));
        EXPECT_EQ(text.toPlainText(), QString::fromUtf8(c.expected)) << c.name;
    }
}

TEST_F(BodyEditorFixture, ClipboardCarriesPlainTextWithOneLinePerParagraphOrBreak) {
    QTextCursor(&text).insertText(QStringLiteral("A") + QChar(0x2028) + QStringLiteral("B "));
    editor.handleKey(key(Qt::Key_A, Qt::ControlModifier));
    editor.handleKey(key(Qt::Key_C, Qt::ControlModifier));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("A\nB Erste Zeile\nZweite Zeile"));

    editor.setPosition(4, false);
    editor.setPosition(9, true);
    editor.handleKey(key(Qt::Key_X, Qt::ControlModifier));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Erste"));
    EXPECT_EQ(text.firstBlock().text(), QStringLiteral("A\u2028B  Zeile"));

    QGuiApplication::clipboard()->setText(QStringLiteral("eins\r\nzwei\ndrei"));
    editor.setPosition(0, false);
    editor.handleKey(key(Qt::Key_V, Qt::ControlModifier));
    EXPECT_EQ(text.blockCount(), 4);
    EXPECT_TRUE(text.toPlainText().startsWith(QStringLiteral("eins\nzwei\ndreiA")));
    // the whole paste is one step
    editor.undo();
    EXPECT_EQ(text.firstBlock().text(), QStringLiteral("A\u2028B  Zeile"));
}

TEST(BodyEditor, DetachedEditorIgnoresEverything) {
    TBodyEditor editor;
    EXPECT_FALSE(editor.isAttached());
    EXPECT_EQ(editor.handleKey(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"))),
              TBodyEditor::TResult::Ignored);
    editor.type(QStringLiteral("x"));
    editor.paste();
    EXPECT_FALSE(editor.undo());
    EXPECT_TRUE(editor.selectedText().isEmpty());
}

TEST(BodyEditor, ACaretOnATextThatGoesBecomesDetached) {
    TBodyEditor editor;
    {
        QTextDocument text(QStringLiteral("kurz"));
        editor.attach(&text);
        editor.setPosition(2, false);
    }
    EXPECT_FALSE(editor.isAttached());
    editor.type(QStringLiteral("x"));
}
