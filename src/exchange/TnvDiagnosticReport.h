#pragma once

#include "TDateTimeUtils.h"
#include "TnvDiagnosticTPTOptions.h"
#include "TnvDiagnosticTextEntry.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class QIODevice;

namespace norvik {

class InvNamedValues;

// The file a feedback leaves the practice in: an EDIFACT MEDRPT message in the ANSI code
// page, one line closed by CR LF, with the PDF of the letter behind it. The receiver's software
// reads it byte by byte, so every character here is deliberate.
//
// Values read: CFGDaMeOutbox, ADRDaMeCode, TPTDaMeCode, TPTDaMeFachgebiet, PATSVNr,
// PATGeburtstag (a date), PATNachname, PATVorname, PATTitel, PATPrivStrasse, PATPrivOrtsname,
// PATPrivPLZ. Written: ResultFileName.
class TnvDiagnosticReport {
public:
    // Writes "{GUID}.pdf" into the outbox folder. True: the file stands there and
    // ResultFileName holds its path. False: nothing was written and AErrors tells why, one line
    // each. A file that can't be created raises norvik::Exception.
    static bool WriteDiagnosticReport(InvNamedValues& AValues, QIODevice& AContent, QString& AErrors,
                                      TDateTime ADate);
    // the whole interchange UNA ... UNZ; empty without entries
    static QString BuildDiagnosticMessage(const InvNamedValues& AValues,
                                          const QList<TnvDiagnosticTextEntry>& AEntries);

    // outbox folder, separator, a new GUID in braces, ".pdf"
    static QString NewResultFileName(const QString& AOutbox);
    // the outbox folder with a separator behind it and the file name, doubled separators
    // reduced behind the first two characters so that a share path keeps its leading pair
    static QString ResultFileName(const QString& AOutbox, const QString& AFileName);
    // the message as it stands in the file: cut before the UNT segment, one CR LF line in the
    // ANSI code page
    static QByteArray MessageLine(const QString& AMessage);

private:
    static QStringList CheckValues(const InvNamedValues& AValues, const QString& AFileName,
                                   const TnvDiagnosticTextEntry& AEntry);
    static QString InterchangeHeader(const QString& ASender, const QString& ARecipient);
    static QString Message(const InvNamedValues& AValues, const TnvDiagnosticTPTOptions& ATPT,
                           const TnvDiagnosticTextEntry& AEntry);
    static QString BGMSegment(const InvNamedValues& AValues, const TnvDiagnosticTPTOptions& ATPT,
                              const TnvDiagnosticTextEntry& AEntry);
    static QString InsuranceElement(const InvNamedValues& AValues);
    static QString NADSegment(const InvNamedValues& AValues);
    static void WriteFile(const QString& AFileName, const QByteArray& ALine, QIODevice& AContent);
};

} // namespace norvik
