#pragma once

#include "TDaMeExportOptions.h"

#include <QByteArray>
#include <QString>

class IDaMeExportMessages;
class QIODevice;
class TFeedbackPersistence;
class TFeedbackWizardState;

namespace engine {
class TDocument;
}

namespace norvik {
class InvDBConnection;
}

// The end of a feedback: therapist, patient and physician are stored, the letter becomes a
// PDF, and the MEDRPT file with the PDF behind it goes into the DaMe outbox. Then, by how the
// program was started, the file is kept as a document row, copied for the calling program,
// or written to standard output as {"document":"<base64>"}. The file stays in the outbox in
// every case.
class TDaMeExport {
public:
    static const QString LetterTitle;

    // True when the export went through and the wizard closes. On false the user was told why
    // and the wizard stays open; what was stored before the failure stays stored. Database and
    // file system errors pass to the caller.
    static bool cmdExportClick(TFeedbackWizardState& AState, engine::TDocument& ADocument,
                               norvik::InvDBConnection& AConn, const TDaMeExportOptions& AOptions,
                               IDaMeExportMessages& AMessages, QIODevice& AStandardOutput);

    // the one line the calling program reads: {"document":"<base64 of the bytes>"}
    static QByteArray DocumentAnswer(const QByteArray& AFileBytes);

private:
    // empty when the document could not be made into a PDF
    static QByteArray MakePdf(engine::TDocument& ADocument);
    // by how the program was started: the document stored, the file copied, the file printed
    static void HandOver(TFeedbackPersistence& APersistence, const QString& AResultFileName,
                         const TDaMeExportOptions& AOptions, QIODevice& AStandardOutput);
    static void CopyResult(const QString& AResultFileName, const QString& ATarget);
    static void WriteToCaller(const QString& AResultFileName, QIODevice& AStandardOutput);
};
