#include "QuestionsCommand.h"

#include "JSONWriter.h"
#include "TJSONVariantData.h"
#include "TQuestionCatalogue.h"

using namespace norvik;

namespace {

QString entryLine(const TContentInfo& info) {
    QList<Variant> pairs;
    for (const TQuestionPair& pair : info.QuestionPairs) {
        TJSONVariantData codeAndCaption;
        codeAndCaption.InitFrom({Variant(pair.Code), Variant(pair.Caption)});
        pairs.append(Variant(codeAndCaption));
    }
    TJSONVariantData pairList;
    pairList.InitFrom(pairs);
    TJSONVariantData entry;
    entry.AddNameValue(QStringLiteral("name"), Variant(info.QuestionName));
    entry.AddNameValue(QStringLiteral("caption"), Variant(info.Caption));
    entry.AddNameValue(QStringLiteral("header"), Variant(info.IsHeader));
    entry.AddNameValue(QStringLiteral("indent"), Variant(qint32(info.Indent.size())));
    entry.AddNameValue(QStringLiteral("pairs"), Variant(pairList));
    return JSONWriter::write(entry);
}

} // namespace

int QuestionsCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(optionalArgument(arguments, QStringLiteral("questions.json")));
    for (const TContentInfo& info : catalogue.Content())
        out << entryLine(info) << '\n';
    out << "actual=" << catalogue.ActualQuestions().toString() << '\n';
    return CliSuccess;
}
