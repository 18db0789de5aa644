#include "LetterCommand.h"

#include "EDocumentError.h"
#include "JsonTherapistSource.h"
#include "TDocxExporter.h"
#include "TFeedbackDocument.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"
#include "TPdfExporter.h"

int LetterCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString content = takeOption(arguments, QStringLiteral("--content"));
    QString questions = QStringLiteral("questions.json");
    if (arguments.contains(QStringLiteral("--questions")))
        questions = takeOption(arguments, QStringLiteral("--questions"));
    const QString templateFile = takeOption(arguments, QStringLiteral("--template"));
    const QString memo = takeOption(arguments, QStringLiteral("--memo"));
    const QString pdfTarget = takeOption(arguments, QStringLiteral("--pdf"));
    const QString docxTarget = takeOption(arguments, QStringLiteral("--docx"));
    if (content.isEmpty() || (pdfTarget.isEmpty() && docxTarget.isEmpty()) || !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects --content SOURCE and --pdf OUT or --docx OUT"));

    // without the database no therapist is stored: the therapist comes from the content
    JsonTherapistSource therapists{QString()};
    TFeedbackWizardState state;
    state.LoadConfig(therapists, nullptr);
    state.FCatalogue.CreateQuestions(questions);
    TFeedbackMergeValues::PrepareValues(state, content, therapists);
    state.memContent = memo;

    TFeedbackDocument letter(state);
    try {
        letter.BuildDocument(templateFile, QString());
    } catch (const engine::EDocumentError& error) {
        err << error.message() << '\n';
        return CliFailure;
    }
    if (!pdfTarget.isEmpty()) {
        if (!engine::TPdfExporter::toFile(letter.Document(), pdfTarget,
                                          QStringLiteral("Physiotherapeutischer Bericht"))) {
            err << "cannot write " << pdfTarget << '\n';
            return CliFailure;
        }
        out << pdfTarget << '\n';
    }
    if (!docxTarget.isEmpty()) {
        if (!engine::TDocxExporter::toFile(letter.Document(), docxTarget)) {
            err << "cannot write " << docxTarget << '\n';
            return CliFailure;
        }
        out << docxTarget << '\n';
    }
    return CliSuccess;
}
