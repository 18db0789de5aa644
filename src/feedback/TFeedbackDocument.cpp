#include "TFeedbackDocument.h"

#include "BuiltInResources.h"
#include "DocUnits.h"
#include "EDocumentError.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextDocument>

namespace {

const QString ContentPlaceholder = QStringLiteral("{INHALT}");
const QChar LineBreak = QChar(0x2028);

bool IsFile(const QString& APath) {
    return !APath.isEmpty() && QFileInfo(APath).isFile();
}

// ends the update bracket also when a template can't be read
class TUpdateBracket {
public:
    explicit TUpdateBracket(engine::TDocument& ADocument)
        : FDocument(ADocument) {
        FDocument.beginUpdate();
    }
    ~TUpdateBracket() { FDocument.endUpdate(); }
    TUpdateBracket(const TUpdateBracket&) = delete;
    TUpdateBracket& operator=(const TUpdateBracket&) = delete;

private:
    engine::TDocument& FDocument;
};

} // namespace

TFeedbackDocument::TFeedbackDocument(TFeedbackWizardState& AState)
    : FState(AState) {}

QString TFeedbackDocument::TemplatePath(const QString& ATemplateOption, const QString& AConfiguredTemplate) {
    if (IsFile(ATemplateOption))
        return ATemplateOption;
    if (IsFile(AConfiguredTemplate))
        return AConfiguredTemplate;
    const QString local = QDir::current().filePath(QStringLiteral("quillnote.docx"));
    return IsFile(local) ? local : QString();
}

void TFeedbackDocument::LoadPredefinedTemplate() {
    FDocument.loadOpenXml(BuiltInResources::feedbackTemplate());
}

void TFeedbackDocument::LoadTemplateByFileName(const QString& AFileName) {
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly))
        throw engine::EDocumentError(
            QStringLiteral("Die Vorlage \"%1\" kann nicht gelesen werden.").arg(AFileName));
    FDocument.loadOpenXml(file);
}

void TFeedbackDocument::BuildDocument(const QString& ATemplateOption, const QString& AConfiguredTemplate) {
    TUpdateBracket bracket(FDocument);
    const QString path = TemplatePath(ATemplateOption, AConfiguredTemplate);
    if (path.isEmpty())
        LoadPredefinedTemplate();
    else
        LoadTemplateByFileName(path);
    TFeedbackMergeValues::BuildMergeFields(FState);
    ReplaceInDocument(FDocument.body());
    ReplaceInShapes(FDocument.body());
    for (const engine::TDocSection& section : FDocument.sections()) {
        for (int kind = 0; kind < engine::TDocSection::kKindCount; ++kind) {
            if (const auto header = section.header(kind)) {
                ReplaceInDocument(*header);
                ReplaceInShapes(*header);
            }
        }
        for (int kind = 0; kind < engine::TDocSection::kKindCount; ++kind) {
            if (const auto footer = section.footer(kind)) {
                ReplaceInDocument(*footer);
                ReplaceInShapes(*footer);
            }
        }
    }
}

void TFeedbackDocument::ReplaceInShapes(engine::TSubDocument& ADocument) {
    for (const auto& shape : ADocument.shapes()) {
        if (shape->hasTextBox())
            ReplaceInDocument(*shape->textBox);
    }
}

void TFeedbackDocument::ReplaceInDocument(engine::TSubDocument& ADocument) {
    ReplaceMergeFields(ADocument);
    // the search goes on behind each block, so that both of two placeholders get it
    QTextCursor match = ADocument.findFirst(ContentPlaceholder);
    while (!match.isNull())
        match = ADocument.findNext(ContentPlaceholder, ExpandContent(ADocument, match));
}

void TFeedbackDocument::ReplaceMergeFields(engine::TSubDocument& ADocument) {
    if (!FState.FValues)
        return;
    const auto values = FState.FValues->GetValues();
    for (const norvik::TnvNamedValue* value : values)
        ADocument.replaceAll(u'{' + value->Name() + u'}', value->AsString());
}

double TFeedbackDocument::BaseSize(const engine::TSubDocument& ADocument, const QTextCursor& AMatch) {
    QList<double> sizes;
    QString style;
    QTextCursor probe(AMatch.document());
    for (int position = AMatch.selectionStart() + 1; position <= AMatch.selectionEnd(); ++position) {
        probe.setPosition(position);
        const QTextCharFormat format = probe.charFormat();
        if (!sizes.contains(format.fontPointSize()))
            sizes.append(format.fontPointSize());
        if (position == AMatch.selectionStart() + 1)
            style = format.property(engine::TSubDocument::kCharacterStyleProperty).toString();
    }
    if (sizes.size() == 1 && sizes.front() > 0)
        return sizes.front();
    return ADocument.namedStyleFontSize(style).value_or(DefaultBaseSize);
}

void TFeedbackDocument::PrepareContentParagraph(QTextCursor& ACursor) {
    QTextBlockFormat format = ACursor.blockFormat();
    format.setLeftMargin(0);
    format.setTextIndent(0);
    QList<QTextOption::Tab> tabs;
    for (double position : ContentTabStops)
        tabs.append(QTextOption::Tab(engine::units::toFormat(engine::units::fromDocumentUnits(position)),
                                     QTextOption::LeftTab));
    format.setTabPositions(tabs);
    ACursor.setBlockFormat(format);
}

void TFeedbackDocument::InsertPiece(QTextCursor& ACursor, const QString& APrefix, const QString& AText,
                                    QTextCharFormat AFormat, double ASize) {
    AFormat.setFontPointSize(ASize);
    if (APrefix == u"\r")
        ACursor.insertBlock(ACursor.blockFormat(), AFormat);
    else
        ACursor.insertText(APrefix, AFormat);
    ACursor.insertText(AText, AFormat);
}

QString TFeedbackDocument::AnswerText(int ACombo) const {
    const auto& boxes = FState.FCatalogue.Boxes();
    return ACombo >= 0 && ACombo < boxes.size() ? boxes.at(ACombo).Text : QString();
}

QTextCursor TFeedbackDocument::ExpandContent(engine::TSubDocument& ADocument, QTextCursor AMatch) {
    const double baseSize = BaseSize(ADocument, AMatch);
    // a header's size is computed in double and kept as a float, as the format stores it
    const double headerSize = static_cast<float>(baseSize * HeaderSizeFactor);
    QTextCursor first(AMatch.document());
    first.setPosition(AMatch.selectionStart() + 1);
    const QTextCharFormat format = first.charFormat();

    QTextCursor cursor = AMatch;
    cursor.removeSelectedText();
    PrepareContentParagraph(cursor);
    const auto& content = FState.FCatalogue.Content();
    for (int i = 0; i < content.size(); ++i) {
        const TContentInfo& info = content.at(i);
        const QString prefix = i == 0 ? QString() : info.IsHeader ? QStringLiteral("\r") : QString(LineBreak);
        if (info.IsHeader)
            InsertPiece(cursor, prefix, info.Caption, format, headerSize);
        else
            InsertPiece(cursor, prefix,
                        info.Indent + info.Caption + QStringLiteral(": \t") + AnswerText(info.Combo), format,
                        baseSize);
    }
    const QString memo = FState.memContent.trimmed();
    if (!memo.isEmpty())
        InsertPiece(cursor, QStringLiteral("\r"), memo, format, baseSize);
    return cursor;
}
