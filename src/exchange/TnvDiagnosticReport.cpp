#include "TnvDiagnosticReport.h"

#include "AnsiCodePage.h"
#include "Clock.h"
#include "Exception.h"
#include "InvNamedValues.h"
#include "TnvEdifactText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QUuid>

namespace norvik {

namespace {

const QString SegmentEnd = QStringLiteral("'");
// the cut behind which nothing is written: the NAD terminator, UNT and UNZ stay out of the file
const QString MessageCut = QStringLiteral("'UNT+");
const QString LineBreak = QStringLiteral("\r\n");

QString DateText(TDateTime ADate, const QString& AFormat) {
    return TDateTimeUtils::toDate(ADate).toString(AFormat);
}

// the lines of a text as a line list sees them: CR LF, CR and LF each end a line, and a
// break at the very end opens no further line
QStringList TextLines(const QString& AText) {
    QString normalized = AText;
    normalized.replace(LineBreak, QStringLiteral("\n")).replace(u'\r', u'\n');
    QStringList lines = normalized.split(u'\n');
    if (normalized.endsWith(u'\n'))
        lines.removeLast();
    return lines;
}

} // namespace

bool TnvDiagnosticReport::WriteDiagnosticReport(InvNamedValues& AValues, QIODevice& AContent,
                                                QString& AErrors, TDateTime ADate) {
    const QString fileName = NewResultFileName(AValues.GetAsString(QStringLiteral("CFGDaMeOutbox")));
    TnvDiagnosticTextEntry entry;
    entry.APATID = 1;
    entry.ANumber = 0;
    entry.ADate = ADate;

    const QStringList failures = CheckValues(AValues, fileName, entry);
    AErrors = failures.join(LineBreak);
    if (!failures.isEmpty())
        return false;

    AValues.SetValueAsString(QStringLiteral("ResultFileName"), fileName);
    WriteFile(fileName, MessageLine(BuildDiagnosticMessage(AValues, {entry})), AContent);
    return true;
}

QString TnvDiagnosticReport::BuildDiagnosticMessage(const InvNamedValues& AValues,
                                                    const QList<TnvDiagnosticTextEntry>& AEntries) {
    if (AEntries.isEmpty())
        return {};
    TnvDiagnosticTPTOptions tpt;
    tpt.ADaMeCode = AValues.GetAsString(QStringLiteral("TPTDaMeCode"));
    tpt.ASpecialism = AValues.GetAsString(QStringLiteral("TPTDaMeFachgebiet"));

    QString text = QStringLiteral("UNA:+.? ") + SegmentEnd;
    text += InterchangeHeader(tpt.ADaMeCode, AValues.GetAsString(QStringLiteral("ADRDaMeCode")));
    for (const TnvDiagnosticTextEntry& entry : AEntries)
        text += Message(AValues, tpt, entry);
    text += QStringLiteral("UNZ+%1+1").arg(AEntries.size()) + SegmentEnd;
    return text;
}

QString TnvDiagnosticReport::NewResultFileName(const QString& AOutbox) {
    const QString guid = QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
    return ResultFileName(AOutbox, guid + QStringLiteral(".pdf"));
}

QString TnvDiagnosticReport::ResultFileName(const QString& AOutbox, const QString& AFileName) {
    const QChar separator = QDir::separator();
    QString path = AOutbox;
    if (!path.endsWith(separator))
        path += separator;
    path += AFileName;

    const QString doubled = QString(2, separator);
    QString tail = path.mid(2);
    for (int pass = 0; pass < 3; ++pass)
        tail.replace(doubled, separator);
    return path.left(2) + tail;
}

QByteArray TnvDiagnosticReport::MessageLine(const QString& AMessage) {
    const qsizetype cut = AMessage.indexOf(MessageCut);
    const QString kept = cut < 0 ? AMessage : AMessage.left(cut);
    QString line;
    for (const QString& part : TextLines(kept))
        line += part + LineBreak;
    return platform::AnsiCodePage::encode(line);
}

QStringList TnvDiagnosticReport::CheckValues(const InvNamedValues& AValues, const QString& AFileName,
                                             const TnvDiagnosticTextEntry& AEntry) {
    QStringList failures;
    if (!QFileInfo(AFileName).absoluteDir().exists())
        failures << QStringLiteral("- Verzeichnis \"%1\" nicht vorhanden.").arg(AFileName);
    if (AEntry.APATID <= 0)
        failures << QStringLiteral("- Patient konnte nicht gefunden werden.");
    if (AValues.GetAsDateTime(QStringLiteral("PATGeburtstag")) <= 0)
        failures << QStringLiteral("- Geburtsdatum wurde beim Patienten nicht angegeben.");
    if (AValues.GetAsString(QStringLiteral("ADRDaMeCode")).isEmpty())
        failures << QStringLiteral("- Arzt konnte nicht gefunden werden.");
    if (AValues.GetAsString(QStringLiteral("TPTDaMeCode")).isEmpty())
        failures << QStringLiteral("- beim Therapeuten wurde kein Übermittlungscode eingegeben.");
    if (AValues.GetAsString(QStringLiteral("TPTDaMeFachgebiet")).isEmpty())
        failures << QStringLiteral("- beim Therapeuten wurde kein Fachgebiet eingegeben.");
    return failures;
}

QString TnvDiagnosticReport::InterchangeHeader(const QString& ASender, const QString& ARecipient) {
    const QDateTime now = Clock::now();
    return QStringLiteral("UNB+ANSI:1+%1+%2+%3+%4+1")
               .arg(ASender, ARecipient, now.toString(QStringLiteral("yyMMdd")),
                    now.toString(QStringLiteral("HHmm"))) +
           SegmentEnd;
}

QString TnvDiagnosticReport::Message(const InvNamedValues& AValues, const TnvDiagnosticTPTOptions& ATPT,
                                     const TnvDiagnosticTextEntry& AEntry) {
    // UNH, BGM, NAD and UNT; each FTX segment adds one
    int segmentCounter = 4;
    QString text = QStringLiteral("UNH+%1+MEDRPT:1:901:UN").arg(AEntry.ANumber) + SegmentEnd;
    text += BGMSegment(AValues, ATPT, AEntry);
    if (!AEntry.AText.isEmpty())
        text += TnvEdifactText::FTXSegments(QStringLiteral("FTX+BFD++"), AEntry.AText, segmentCounter);
    if (!AEntry.AReason.isEmpty())
        text += TnvEdifactText::FTXSegments(QStringLiteral("FTX+ERG++"), AEntry.AReason, segmentCounter);
    text += NADSegment(AValues);
    text += QStringLiteral("UNT+%1+%2").arg(segmentCounter).arg(AEntry.ANumber) + SegmentEnd;
    return text;
}

QString TnvDiagnosticReport::BGMSegment(const InvNamedValues& AValues, const TnvDiagnosticTPTOptions& ATPT,
                                        const TnvDiagnosticTextEntry& AEntry) {
    const TDateTime birthDate = AValues.GetAsDateTime(QStringLiteral("PATGeburtstag"));
    return QStringLiteral("BGM+%1+++%2++%3+%4")
               .arg(ATPT.ASpecialism, DateText(AEntry.ADate, QStringLiteral("yyyyMMdd")),
                    InsuranceElement(AValues), DateText(birthDate, QStringLiteral("yyyyMMdd"))) +
           SegmentEnd;
}

QString TnvDiagnosticReport::InsuranceElement(const InvNamedValues& AValues) {
    const QString number = TnvEdifactText::Trim(AValues.GetAsString(QStringLiteral("PATSVNr")));
    if (number.isEmpty() || number == QStringLiteral("0000"))
        return {};
    // the number's two-digit year becomes the four-digit year of the date of birth
    const TDateTime birthDate = AValues.GetAsDateTime(QStringLiteral("PATGeburtstag"));
    return number.left(8) + DateText(birthDate, QStringLiteral("yyyy"));
}

QString TnvDiagnosticReport::NADSegment(const InvNamedValues& AValues) {
    const auto released = [&AValues](const char16_t* name) {
        return TnvEdifactText::ReleaseAndTrim(AValues.GetAsString(QString::fromUtf16(name)));
    };
    // the street is the name element's fourth component, and the city stands before the postal code
    return QStringLiteral("NAD+PAT++") + released(u"PATNachname") + u':' + released(u"PATVorname") + u':' +
           released(u"PATTitel") + u':' + released(u"PATPrivStrasse") + QStringLiteral("+++") +
           released(u"PATPrivOrtsname") + QStringLiteral("++") + released(u"PATPrivPLZ") + SegmentEnd;
}

void TnvDiagnosticReport::WriteFile(const QString& AFileName, const QByteArray& ALine, QIODevice& AContent) {
    QFile file(AFileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw Exception(QStringLiteral("Cannot create file \"%1\". %2").arg(AFileName, file.errorString()));
    AContent.seek(0);
    const QByteArray content = AContent.readAll();
    if (file.write(ALine) != ALine.size() || file.write(content) != content.size())
        throw Exception(QStringLiteral("Stream write error: \"%1\". %2").arg(AFileName, file.errorString()));
}

} // namespace norvik
