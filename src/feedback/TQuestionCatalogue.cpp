#include "TQuestionCatalogue.h"

#include "BuiltInResources.h"
#include "FileUtils.h"
#include "TJSONVariantData.h"
#include "VariantJSON.h"

#include <QFileInfo>

using namespace norvik;

namespace {

// the page's measures in design pixels
constexpr int HeadingOffset = 4;
constexpr int HeadingHeight = 31;
constexpr int LevelIndent = 16;
constexpr int PageWidth = 345;
constexpr int BoxGap = 1;

// the element of a key; nullptr when the node is no JSON variant or has no such key
const Variant* elementOf(const Variant& node, const QString& key) {
    const TJSONVariantData* data = node.json();
    return data ? data->ValueOf(key) : nullptr;
}

bool hasKey(const Variant& node, const QString& key) {
    return elementOf(node, key) != nullptr;
}

// the key's value as text; an absent key, Null and a value without a text form read as empty
QString textOf(const Variant& node, const QString& key) {
    const Variant* value = elementOf(node, key);
    if (!value || value->isEmpty())
        return QString();
    try {
        return value->toString();
    } catch (const EVariantError&) {
        return QString();
    }
}

// the elements of the key's array; anything but an array has none
QList<Variant> elementsOf(const Variant& node, const QString& key) {
    const Variant* value = elementOf(node, key);
    const TJSONVariantData* data = value ? value->json() : nullptr;
    QList<Variant> elements;
    if (!data || data->VKind != jvArray)
        return elements;
    for (int i = 0; i < data->VCount; ++i)
        elements.append(data->ValueAt(i));
    return elements;
}

} // namespace

void TQuestionCatalogue::CreateQuestions(const QString& source) {
    FContent.clear();
    FHeadings.clear();
    FBoxes.clear();
    Variant catalogue = ParseSource(source);
    // the built-in catalogue stands in only where nothing was parsed at all
    if (catalogue.isEmpty())
        catalogue = JSONVariant(BuiltInResources::questions().trimmed());
    if (catalogue.isEmpty())
        return;
    FActualTop = 0;
    const QString questionsKey = QStringLiteral("questions");
    for (const Variant& question : elementsOf(catalogue, questionsKey))
        CreateQuestionBlock(question);
    FActualQuestions = Variant(hasKey(catalogue, questionsKey));
}

Variant TQuestionCatalogue::ParseSource(const QString& source) {
    // a name that is no existing file is taken for the JSON text itself
    if (QFileInfo(source).isFile()) {
        // a file that cannot be read gives the empty text, which parses to nothing
        QString text;
        TryReadUtf8File(source, text);
        return JSONVariant(text);
    }
    if (!source.isEmpty())
        return JSONVariant(source);
    return Variant::null();
}

void TQuestionCatalogue::CreateQuestionBlock(const Variant& question) {
    // Null, or a plain value, holds no question
    if (!question.isJSON())
        return;
    const TQuestionHeading heading{textOf(question, QStringLiteral("description")), 0,
                                   FActualTop + HeadingOffset};
    FHeadings.append(heading);
    AddContentInfo(textOf(question, QStringLiteral("name")), heading.Text, {}, -1, QString(), true);
    FActualTop += HeadingHeight;
    const QString itemsKey = QStringLiteral("items");
    if (hasKey(question, itemsKey))
        CreateQuestionCombo(question, 1);
    for (const Variant& subcategory : elementsOf(question, QStringLiteral("subcategories"))) {
        if (hasKey(subcategory, itemsKey))
            CreateQuestionCombo(subcategory, 2);
    }
}

void TQuestionCatalogue::CreateQuestionCombo(const Variant& node, int level) {
    TAnswerBox box;
    box.Hint = textOf(node, QStringLiteral("description"));
    box.Left = level * LevelIndent;
    box.Top = FActualTop;
    box.Width = PageWidth - level * LevelIndent;
    TQuestionPairArray pairs;
    for (const Variant& item : elementsOf(node, QStringLiteral("items"))) {
        const QString caption = textOf(item, QStringLiteral("caption"));
        // an answer without text leaves no trace: the box's items and the pairs stay parallel
        if (caption.isEmpty())
            continue;
        box.Items.append(caption);
        pairs.append(TQuestionPair{textOf(item, QStringLiteral("code")), caption});
    }
    FBoxes.append(box);
    FActualTop += FBoxHeight + BoxGap;
    AddContentInfo(textOf(node, QStringLiteral("name")), box.Hint, pairs, int(FBoxes.size() - 1),
                   QString(level, QLatin1Char('\t')), false);
}

void TQuestionCatalogue::AddContentInfo(const QString& questionName, const QString& caption,
                                        const TQuestionPairArray& pairs, int combo, const QString& indent,
                                        bool isHeader) {
    TContentInfo info;
    info.Caption = caption;
    info.IsHeader = isHeader;
    info.Indent = indent;
    info.Combo = combo;
    info.QuestionName = questionName;
    info.QuestionPairs = pairs;
    FContent.append(info);
}
