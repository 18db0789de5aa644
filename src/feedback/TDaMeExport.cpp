#include "TDaMeExport.h"

#include "Clock.h"
#include "IDaMeExportMessages.h"
#include "TFeedbackExport.h"
#include "TFeedbackPersistence.h"
#include "TFeedbackWizardState.h"
#include "TJSONVariantData.h"
#include "TPdfExporter.h"
#include "TnvDiagnosticReport.h"
#include "Variant.h"

#include <QBuffer>
#include <QFile>
#include <QFileDevice>

const QString TDaMeExport::LetterTitle = QStringLiteral("Physiotherapeutischer Bericht");

bool TDaMeExport::cmdExportClick(TFeedbackWizardState& AState, engine::TDocument& ADocument,
                                 norvik::InvDBConnection& AConn, const TDaMeExportOptions& AOptions,
                                 IDaMeExportMessages& AMessages, QIODevice& AStandardOutput) {
    // stored before anything is checked, so that the addresses stay even if the export fails
    TFeedbackPersistence persistence(AState, AConn);
    persistence.SaveTPTToDatabase();
    persistence.SaveAddressesToDatabase();
    TFeedbackExport::FillExport(AState);

    QByteArray pdf = MakePdf(ADocument);
    if (pdf.isEmpty()) {
        AMessages.ShowError(QStringLiteral(
            "Die Erstellung des PDF ist fehlgeschlagen. Bitte wenden Sie sich an Ihren Administrator."));
        return false;
    }
    QBuffer content(&pdf);
    content.open(QIODevice::ReadOnly);
    QString errors;
    if (!norvik::TnvDiagnosticReport::WriteDiagnosticReport(*AState.FExport, content, errors,
                                                            norvik::Clock::todayDate())) {
        AMessages.ShowErrorWithDetails(QStringLiteral("Es konnte das Dokument nicht bereitgestellt werden."),
                                       errors);
        return false;
    }

    HandOver(persistence, AState.FExport->GetAsString(QStringLiteral("ResultFileName")), AOptions,
             AStandardOutput);
    AMessages.ShowInformation(QStringLiteral("Das Dokument wurde erfolgreich bereitgestellt."));
    return true;
}

void TDaMeExport::HandOver(TFeedbackPersistence& APersistence, const QString& AResultFileName,
                           const TDaMeExportOptions& AOptions, QIODevice& AStandardOutput) {
    // a document handed to the calling program is its business, not the practice's record
    if (!AOptions.ReturnToCaller && !AOptions.ResultCopyPath)
        APersistence.SaveContentToDatabase(AResultFileName);
    if (AOptions.ResultCopyPath)
        CopyResult(AResultFileName, *AOptions.ResultCopyPath);
    if (AOptions.ReturnToCaller && AOptions.ConsoleAllocated && QFile::exists(AResultFileName))
        WriteToCaller(AResultFileName, AStandardOutput);
}

QByteArray TDaMeExport::DocumentAnswer(const QByteArray& AFileBytes) {
    norvik::TJSONVariantData answer;
    answer.Init(QStringLiteral("{}"));
    answer.SetValue(QStringLiteral("document"), norvik::Variant(QString::fromLatin1(AFileBytes.toBase64())));
    return answer.ToJSON().toUtf8() + '\n';
}

QByteArray TDaMeExport::MakePdf(engine::TDocument& ADocument) {
    const QByteArray pdf = engine::TPdfExporter::toPdf(ADocument, LetterTitle);
    return pdf.startsWith("%PDF") ? pdf : QByteArray();
}

// The copy's result is not looked at: the file stands in the outbox all the same. The outbox
// file has a new name, so the target removed here is never the file itself.
void TDaMeExport::CopyResult(const QString& AResultFileName, const QString& ATarget) {
    QFile::remove(ATarget);
    QFile::copy(AResultFileName, ATarget);
}

void TDaMeExport::WriteToCaller(const QString& AResultFileName, QIODevice& AStandardOutput) {
    QFile file(AResultFileName);
    if (!file.open(QIODevice::ReadOnly))
        return;
    AStandardOutput.write(DocumentAnswer(file.readAll()));
    if (auto* device = qobject_cast<QFileDevice*>(&AStandardOutput))
        device->flush();
}
