#pragma once

#include "TDocument.h"

#include <QString>

class TFeedbackWizardState;

// The letter of a feedback: the template, filled with the merge fields and the answers. The
// wizard shows Document() on its last page; export and print take it from there.
class TFeedbackDocument {
public:
    // tab stops of the content block, in the engine's document units
    static constexpr double ContentTabStops[] = {80, 160, 900};
    // headings of the content block stand this much larger than the text around them
    static constexpr double HeaderSizeFactor = 1.2;
    // the size of the content block when neither its text nor its style names one
    static constexpr double DefaultBaseSize = 11.0;

    explicit TFeedbackDocument(TFeedbackWizardState& AState);

    engine::TDocument& Document() { return FDocument; }

    // The whole rebuild, inside one update bracket: the template, the merge fields, and the
    // replacements in the body, its text boxes and all headers and footers. ATemplateOption
    // is the command line's "tf", AConfiguredTemplate the setting DOCXTemplate.
    void BuildDocument(const QString& ATemplateOption, const QString& AConfiguredTemplate);
    // the merge fields and the content block, in one body, text box, header or footer
    void ReplaceInDocument(engine::TSubDocument& ADocument);

    // the first of: the "tf" file, the configured file, quillnote.docx in the working folder;
    // empty when none of them exists, which means the built-in template
    static QString TemplatePath(const QString& ATemplateOption, const QString& AConfiguredTemplate);
    void LoadPredefinedTemplate();
    // raises engine::EDocumentError for a file that can't be read as a DOCX template
    void LoadTemplateByFileName(const QString& AFileName);

private:
    void ReplaceInShapes(engine::TSubDocument& ADocument);
    void ReplaceMergeFields(engine::TSubDocument& ADocument);
    // gives the place behind the inserted block
    QTextCursor ExpandContent(engine::TSubDocument& ADocument, QTextCursor AMatch);
    static double BaseSize(const engine::TSubDocument& ADocument, const QTextCursor& AMatch);
    static void PrepareContentParagraph(QTextCursor& ACursor);
    static void InsertPiece(QTextCursor& ACursor, const QString& APrefix, const QString& AText,
                            QTextCharFormat AFormat, double ASize);
    QString AnswerText(int ACombo) const;

    TFeedbackWizardState& FState;
    engine::TDocument FDocument;
};
