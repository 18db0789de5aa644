#include "PrepareCommand.h"

#include "JsonTherapistSource.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"

#include <QFile>

namespace {

// one line per value: a line break shows as "\n"
QString oneLine(QString value) {
    return value.replace(QStringLiteral("\r\n"), QStringLiteral("\\n"))
        .replace(u'\r', QStringLiteral("\\n"))
        .replace(u'\n', QStringLiteral("\\n"));
}

QStringList controlLines(const TFeedbackWizardState& state) {
    QStringList lines;
    for (const auto& edit : TFeedbackWizardState::TextEdits())
        lines << edit.Name + u'=' + oneLine(state.*edit.Member);
    for (const auto& edit : TFeedbackWizardState::DateEdits())
        lines << edit.Name + u'=' + TFeedbackWizardState::DateDisplayText(state.*edit.Member);
    for (const auto& box : TFeedbackWizardState::ComboBoxes()) {
        lines << box.Name + u'=' + oneLine((state.*box.Member).Text());
        lines << box.Name + QStringLiteral("#index=") + QString::number((state.*box.Member).ItemIndex());
    }
    lines.sort();
    return lines;
}

QStringList answerLines(const TFeedbackWizardState& state) {
    QStringList lines;
    for (const TContentInfo& info : state.FCatalogue.Content()) {
        if (info.Combo >= 0)
            lines << QStringLiteral("answer:") + info.QuestionName + QStringLiteral("#index=") +
                         QString::number(state.FCatalogue.Boxes().at(info.Combo).ItemIndex);
    }
    return lines;
}

QStringList mergeFieldLines(const TFeedbackWizardState& state) {
    QStringList lines;
    for (const norvik::TnvNamedValue* value : state.FValues->Values())
        lines << value->Name() + u'=' + oneLine(value->AsString());
    lines.sort();
    return lines;
}

} // namespace

int PrepareCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    if (!arguments.contains(QStringLiteral("--content")))
        throw ECliUsage(QStringLiteral("expects --content SOURCE"));
    const QString content = takeOption(arguments, QStringLiteral("--content"));
    QString questions = QStringLiteral("questions.json");
    if (arguments.contains(QStringLiteral("--questions")))
        questions = takeOption(arguments, QStringLiteral("--questions"));
    const QString therapistFile = takeOption(arguments, QStringLiteral("--therapists"));
    if (!arguments.isEmpty())
        throw ECliUsage(QStringLiteral("unexpected argument \"%1\"").arg(arguments.first()));

    QString therapists;
    if (!therapistFile.isEmpty()) {
        QFile file(therapistFile);
        if (!file.open(QIODevice::ReadOnly)) {
            err << "cannot read " << therapistFile << '\n';
            return CliFailure;
        }
        therapists = QString::fromUtf8(file.readAll());
    }
    JsonTherapistSource source(therapists);
    TFeedbackWizardState state;
    state.LoadConfig(source, nullptr);
    state.FCatalogue.CreateQuestions(questions);
    TFeedbackMergeValues::PrepareValues(state, content, source);
    TFeedbackMergeValues::BuildMergeFields(state);

    for (const QString& line : controlLines(state) + answerLines(state) + QStringList{QStringLiteral("--")} +
                                   mergeFieldLines(state))
        out << line << '\n';
    return CliSuccess;
}
