#include "DemoCommand.h"

#include "BuiltInResources.h"
#include "Clock.h"
#include "EDocumentError.h"
#include "Exception.h"
#include "JsonTherapistSource.h"
#include "TFeedbackDocument.h"
#include "TFeedbackExport.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"
#include "TPdfExporter.h"
#include "TnvDiagnosticReport.h"
#include "TnvNamedValues.h"

#include <QBuffer>
#include <QDir>
#include <QFile>

namespace {

const QString LetterTitle = QStringLiteral("Physiotherapeutischer Bericht");

bool writeFile(const QString& fileName, const QByteArray& bytes) {
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Without a database the therapist is not stored; the row the outbox message is written from
// is taken from the therapist's edits, as storing would leave it.
void takeTherapistFromEdits(TFeedbackWizardState& state) {
    auto therapist = norvik::TnvNamedValues::Create();
    therapist->SetValueAsString(QStringLiteral("TPTZusatzText1"), state.edtTHPTherapist);
    therapist->SetValueAsString(QStringLiteral("TPTZusatzText2"), state.edtTHPTherapistExtension);
    therapist->SetValueAsString(QStringLiteral("TPTDaMeFachgebiet"), state.edtTHPTherapistField);
    therapist->SetValueAsString(QStringLiteral("TPTDaMeCode"), state.edtTHPTherapistMailbox);
    state.FTPT = therapist;
}

} // namespace

int DemoCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const QString target = takeOption(arguments, QStringLiteral("--out"));
    if (target.isEmpty() || !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects --out DIR"));
    const QDir folder(QDir(target).absolutePath());
    const QString outbox = folder.filePath(QStringLiteral("outbox"));
    if (!QDir().mkpath(outbox)) {
        err << "cannot create " << outbox << '\n';
        return CliFailure;
    }

    // no database stands behind the demonstration: the therapist comes from the content
    JsonTherapistSource therapists{QString()};
    auto config = norvik::TnvNamedValues::Create();
    config->SetValueAsString(QStringLiteral("ExportFolder"), outbox);
    TFeedbackWizardState state;
    state.LoadConfig(therapists, config);
    state.FCatalogue.CreateQuestions(QString());
    TFeedbackMergeValues::PrepareValues(state, BuiltInResources::demoContent(), therapists);

    TFeedbackDocument letter(state);
    QByteArray pdf;
    try {
        letter.BuildDocument(QString(), QString());
        pdf = engine::TPdfExporter::toPdf(letter.Document(), LetterTitle);
    } catch (const engine::EDocumentError& error) {
        err << error.message() << '\n';
        return CliFailure;
    }
    const QString letterFile = folder.filePath(QStringLiteral("demo-letter.pdf"));
    if (!writeFile(letterFile, pdf)) {
        err << "cannot write " << letterFile << '\n';
        return CliFailure;
    }

    takeTherapistFromEdits(state);
    TFeedbackExport::FillExport(state);
    QBuffer content(&pdf);
    content.open(QIODevice::ReadOnly);
    QString errors;
    try {
        if (!norvik::TnvDiagnosticReport::WriteDiagnosticReport(*state.FExport, content, errors,
                                                                norvik::Clock::todayDate())) {
            err << errors.split(QStringLiteral("\r\n")).join(u'\n') << '\n';
            return CliFailure;
        }
    } catch (const norvik::Exception& e) {
        err << e.message() << '\n';
        return CliFailure;
    }
    out << "letter=" << letterFile << '\n';
    out << "outbox=" << state.FExport->GetAsString(QStringLiteral("ResultFileName")) << '\n';
    return CliSuccess;
}
