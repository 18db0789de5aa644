#include "AnsiCodePage.h"
#include "Exception.h"
#include "FixedClock.h"
#include "TDateTimeUtils.h"
#include "TestEnvironment.h"
#include "TnvDiagnosticReport.h"
#include "TnvNamedValues.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <ostream>

using norvik::TDateTimeUtils;
using norvik::TnvDiagnosticReport;
using norvik::TnvDiagnosticTextEntry;
using norvik::TnvNamedValues;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

const QByteArray Pdf = QByteArrayLiteral("%PDF-1.4\n\x00\xff binary\r\n%%EOF");

// the patient of the letter every test starts from: Frau Maria Muster, born 15 May 1980
std::shared_ptr<TnvNamedValues> ExampleValues(const QString& AOutbox) {
    auto values = TnvNamedValues::Create();
    values->SetValueAsString(QStringLiteral("CFGDaMeOutbox"), AOutbox);
    values->SetValueAsString(QStringLiteral("ADRDaMeCode"), QStringLiteral("XYZ"));
    values->SetValueAsString(QStringLiteral("TPTDaMeCode"), QStringLiteral("ABC"));
    values->SetValueAsString(QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("PHY"));
    values->SetValueAsString(QStringLiteral("PATSVNr"), QStringLiteral("1234150580"));
    values->SetValueAsDateTime(QStringLiteral("PATGeburtstag"), TDateTimeUtils::EncodeDate(1980, 5, 15));
    values->SetValueAsString(QStringLiteral("PATNachname"), QStringLiteral("Muster"));
    values->SetValueAsString(QStringLiteral("PATVorname"), QStringLiteral("Maria"));
    values->SetValueAsString(QStringLiteral("PATTitel"), QString());
    values->SetValueAsString(QStringLiteral("PATPrivStrasse"), QStringLiteral("Hauptstraße 1"));
    values->SetValueAsString(QStringLiteral("PATPrivOrtsname"), QStringLiteral("Wien"));
    values->SetValueAsString(QStringLiteral("PATPrivPLZ"), QStringLiteral("1010"));
    return values;
}

const QString ExampleLine = QStringLiteral(
    "UNA:+.? "
    "'UNB+ANSI:1+ABC+XYZ+260303+1405+1'UNH+0+MEDRPT:1:901:UN'BGM+PHY+++20260303++123415051980+19800515'"
    "NAD+PAT++Muster:Maria::Hauptstraße 1+++Wien++1010");

class DiagnosticReportTest : public testing::Test {
protected:
    testsupport::FixedClock clock{"2026-03-03 14:05:00"};
    testsupport::TempDir outbox;
    std::shared_ptr<TnvNamedValues> values = ExampleValues(outbox.path());
    const norvik::TDateTime reportDate = TDateTimeUtils::EncodeDate(2026, 3, 3);

    // the whole interchange of one report with the given text and reason
    QString Message(const QString& AText = {}, const QString& AReason = {}) {
        TnvDiagnosticTextEntry entry;
        entry.APATID = 1;
        entry.ADate = reportDate;
        entry.AText = AText;
        entry.AReason = AReason;
        return TnvDiagnosticReport::BuildDiagnosticMessage(*values, {entry});
    }

    // the segment of the message that starts with the tag; for values without an apostrophe
    QString Segment(const QString& ATag) {
        for (const QString& segment : Message().split(u'\''))
            if (segment.startsWith(ATag))
                return segment;
        return {};
    }

    bool Write(QString& AErrors) {
        QBuffer pdf;
        pdf.setData(Pdf);
        pdf.open(QIODevice::ReadOnly);
        return TnvDiagnosticReport::WriteDiagnosticReport(*values, pdf, AErrors, reportDate);
    }

    QStringList OutboxFiles() const { return QDir(outbox.path()).entryList(QDir::Files); }
};

QByteArray ReadAll(const QString& AFileName) {
    QFile file(AFileName);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

TEST_F(DiagnosticReportTest, ExampleReportIsWrittenByteForByte) {
    QString errors;
    ASSERT_TRUE(Write(errors));
    EXPECT_EQ(errors, QString());

    const QString fileName = values->GetAsString(QStringLiteral("ResultFileName"));
    ASSERT_EQ(OutboxFiles().size(), 1);
    EXPECT_EQ(fileName, outbox.filePath(OutboxFiles().first()));
    QByteArray expected = ExampleLine.toLatin1() + "\r\n" + Pdf;
    EXPECT_EQ(ReadAll(fileName), expected);
    // the text is in Windows-1252: "ß" is the single byte 0xDF
    EXPECT_TRUE(ReadAll(fileName).contains("Hauptstra\xdf"
                                           "e 1"));
}

TEST_F(DiagnosticReportTest, FileIsNamedByANewGuidInBraces) {
    QString errors;
    ASSERT_TRUE(Write(errors));
    ASSERT_TRUE(Write(errors));
    const QRegularExpression name(
        QStringLiteral("^\\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\}\\.pdf$"));
    ASSERT_EQ(OutboxFiles().size(), 2);
    for (const QString& file : OutboxFiles())
        EXPECT_TRUE(name.match(file).hasMatch()) << file.toStdString();
}

TEST_F(DiagnosticReportTest, WholeInterchangeClosesWithUntAndUnz) {
    EXPECT_EQ(Message(), ExampleLine + QStringLiteral("'UNT+4+0'UNZ+1+1'"));
}

TEST_F(DiagnosticReportTest, NoEntriesGiveNoText) {
    EXPECT_EQ(TnvDiagnosticReport::BuildDiagnosticMessage(*values, {}), QString());
}

TEST_F(DiagnosticReportTest, EachEntryIsOneMessageCountedInUnz) {
    TnvDiagnosticTextEntry first;
    first.ANumber = 7;
    first.ADate = TDateTimeUtils::EncodeDate(2026, 1, 2);
    TnvDiagnosticTextEntry second = first;
    second.ANumber = 8;
    second.AText = QStringLiteral("Befund");
    const QString text = TnvDiagnosticReport::BuildDiagnosticMessage(*values, {first, second});
    EXPECT_TRUE(text.contains(QStringLiteral("'UNH+7+MEDRPT:1:901:UN'BGM+PHY+++20260102++")));
    EXPECT_TRUE(text.contains(QStringLiteral("++1010'UNT+4+7'UNH+8+")));
    EXPECT_TRUE(text.endsWith(QStringLiteral(
        "'FTX+BFD++Befund'NAD+PAT++Muster:Maria::Hauptstraße 1+++Wien++1010'UNT+5+8'UNZ+2+1'")));
}

TEST_F(DiagnosticReportTest, InterchangeHeaderTakesTheClockAndBgmTheReportDate) {
    testsupport::FixedClock later{"2027-11-09 08:07:59"};
    EXPECT_EQ(Segment(QStringLiteral("UNB")), QStringLiteral("UNB+ANSI:1+ABC+XYZ+271109+0807+1"));
    EXPECT_EQ(Segment(QStringLiteral("BGM")), QStringLiteral("BGM+PHY+++20260303++123415051980+19800515"));
}

TEST_F(DiagnosticReportTest, CodesAndFieldGoInUnreleased) {
    values->SetValueAsString(QStringLiteral("TPTDaMeCode"), QStringLiteral("A:B"));
    values->SetValueAsString(QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("P.H"));
    EXPECT_EQ(Segment(QStringLiteral("UNB")), QStringLiteral("UNB+ANSI:1+A:B+XYZ+260303+1405+1"));
    EXPECT_EQ(Segment(QStringLiteral("BGM")), QStringLiteral("BGM+P.H+++20260303++123415051980+19800515"));
}

namespace {

struct InsuranceCase {
    const char16_t* number;
    const char16_t* element;
};

class InsuranceElementTest : public DiagnosticReportTest,
                             public testing::WithParamInterface<InsuranceCase> {};

} // namespace

TEST_P(InsuranceElementTest, NumberBecomesEightCharactersAndTheYearOfBirth) {
    values->SetValueAsString(QStringLiteral("PATSVNr"), QString::fromUtf16(GetParam().number));
    EXPECT_EQ(Segment(QStringLiteral("BGM")),
              QStringLiteral("BGM+PHY+++20260303++%1+19800515").arg(QString::fromUtf16(GetParam().element)));
}

INSTANTIATE_TEST_SUITE_P(Numbers, InsuranceElementTest,
                         testing::Values(InsuranceCase{u"1234150580", u"123415051980"},
                                         InsuranceCase{u" 1234150580 ", u"123415051980"},
                                         InsuranceCase{u"0000", u""}, InsuranceCase{u"", u""},
                                         InsuranceCase{u"   ", u""}, InsuranceCase{u"123", u"1231980"},
                                         InsuranceCase{u"12:4150580", u"12:415051980"}));

TEST_F(DiagnosticReportTest, NameAndAddressAreReleasedAndTrimmed) {
    values->SetValueAsString(QStringLiteral("PATNachname"), QStringLiteral("O'Neil + Söhne "));
    values->SetValueAsString(QStringLiteral("PATVorname"), QStringLiteral(" Eva?"));
    values->SetValueAsString(QStringLiteral("PATTitel"), QStringLiteral("Dr.med."));
    values->SetValueAsString(QStringLiteral("PATPrivStrasse"), QStringLiteral("Gasse 1:3"));
    values->SetValueAsString(QStringLiteral("PATPrivOrtsname"), QStringLiteral("St. Pölten"));
    values->SetValueAsString(QStringLiteral("PATPrivPLZ"), QStringLiteral("3100'"));
    EXPECT_TRUE(Message().endsWith(QStringLiteral(
        "'NAD+PAT++O?'Neil ?+ Söhne:Eva??:Dr?.med?.:Gasse 1?:3+++St?. Pölten++3100?''UNT+4+0'UNZ+1+1'")));
}

TEST_F(DiagnosticReportTest, EmptyNameAndAddressLeaveTheSeparatorsStanding) {
    for (const char* name :
         {"PATNachname", "PATVorname", "PATTitel", "PATPrivStrasse", "PATPrivOrtsname", "PATPrivPLZ"})
        values->Delete(QString::fromLatin1(name));
    EXPECT_EQ(Segment(QStringLiteral("NAD")), QStringLiteral("NAD+PAT++:::+++++"));
}

TEST_F(DiagnosticReportTest, TextAndReasonBecomeFtxSegmentsCountedInUnt) {
    const QString text = QString(351, u't');
    const QString message = Message(text, QStringLiteral("Grund: Schmerz"));
    EXPECT_TRUE(message.contains(QStringLiteral("19800515'FTX+BFD++") + QString(70, u't') + u':'));
    EXPECT_TRUE(message.contains(QStringLiteral("'FTX+BFD++t'FTX+ERG++Grund?: Schmerz'NAD+PAT++")));
    EXPECT_TRUE(message.endsWith(QStringLiteral("'UNT+7+0'UNZ+1+1'")));
}

TEST_F(DiagnosticReportTest, TextOfBlanksAddsNoSegment) {
    EXPECT_TRUE(Message(QStringLiteral("   "))
                    .endsWith(QStringLiteral(
                        "19800515'NAD+PAT++Muster:Maria::Hauptstraße 1+++Wien++1010'UNT+4+0'UNZ+1+1'")));
}

TEST(DiagnosticReportLineTest, LineEndsBeforeTheUntSegmentWithCrLf) {
    EXPECT_EQ(TnvDiagnosticReport::MessageLine(QStringLiteral("UNA'NAD+PAT++a'UNT+4+0'UNZ+1+1'")),
              QByteArray("UNA'NAD+PAT++a\r\n"));
}

TEST(DiagnosticReportLineTest, LineBreaksInsideTheTextBecomeCrLf) {
    EXPECT_EQ(TnvDiagnosticReport::MessageLine(QStringLiteral("a\nb\rc\r\nd\n'UNT+")),
              QByteArray("a\r\nb\r\nc\r\nd\r\n"));
}

TEST(DiagnosticReportLineTest, TextIsInTheAnsiCodePage) {
    EXPECT_EQ(TnvDiagnosticReport::MessageLine(QStringLiteral("Jänner €")), QByteArray("J\xe4nner \x80\r\n"));
}

namespace {

struct FileNameCase {
    const char16_t* outbox;
    const char16_t* path;
};

class ResultFileNameTest : public testing::TestWithParam<FileNameCase> {};

} // namespace

TEST_P(ResultFileNameTest, SeparatorIsAddedAndDoubledOnesReducedInThreePasses) {
    EXPECT_EQ(
        TnvDiagnosticReport::ResultFileName(QString::fromUtf16(GetParam().outbox), QStringLiteral("{G}.pdf")),
        QString::fromUtf16(GetParam().path));
}

INSTANTIATE_TEST_SUITE_P(Outboxes, ResultFileNameTest,
                         testing::Values(FileNameCase{u"/var/dame/out", u"/var/dame/out/{G}.pdf"},
                                         FileNameCase{u"/var/dame/out/", u"/var/dame/out/{G}.pdf"},
                                         // an empty outbox is the root folder
                                         FileNameCase{u"", u"/{G}.pdf"}, FileNameCase{u"out", u"out/{G}.pdf"},
                                         // the first two characters stay, as a share path needs them
                                         FileNameCase{u"//server//share", u"//server/share/{G}.pdf"},
                                         FileNameCase{u"/var//dame///out//", u"/var/dame/out/{G}.pdf"},
                                         // sixteen separators become eight, four, then two
                                         FileNameCase{u"/a////////////////b", u"/a//b/{G}.pdf"}));

TEST_F(DiagnosticReportTest, EveryFailedCheckGivesItsLineAndNothingIsWritten) {
    auto empty = TnvNamedValues::Create();
    const QString missing = outbox.filePath(QStringLiteral("fehlt"));
    empty->SetValueAsString(QStringLiteral("CFGDaMeOutbox"), missing);
    QBuffer pdf;
    pdf.open(QIODevice::ReadOnly);
    QString errors;
    EXPECT_FALSE(TnvDiagnosticReport::WriteDiagnosticReport(*empty, pdf, errors, reportDate));

    const QStringList lines = errors.split(QStringLiteral("\r\n"));
    ASSERT_EQ(lines.size(), 5);
    const QRegularExpression folderLine(
        QStringLiteral("^- Verzeichnis \"%1/\\{[0-9A-F-]{36}\\}\\.pdf\" nicht vorhanden\\.$")
            .arg(QRegularExpression::escape(missing)));
    EXPECT_TRUE(folderLine.match(lines.at(0)).hasMatch()) << lines.at(0).toStdString();
    EXPECT_EQ(lines.mid(1),
              QStringList({QStringLiteral("- Geburtsdatum wurde beim Patienten nicht angegeben."),
                           QStringLiteral("- Arzt konnte nicht gefunden werden."),
                           QStringLiteral("- beim Therapeuten wurde kein Übermittlungscode eingegeben."),
                           QStringLiteral("- beim Therapeuten wurde kein Fachgebiet eingegeben.")}));
    EXPECT_FALSE(empty->ValueExists(QStringLiteral("ResultFileName")));
    EXPECT_FALSE(QFileInfo::exists(missing));
}

namespace {

struct CheckCase {
    const char* name;
    const char16_t* line;
};

class SingleCheckTest : public DiagnosticReportTest, public testing::WithParamInterface<CheckCase> {};

} // namespace

TEST_P(SingleCheckTest, MissingValueAloneFailsWithItsLine) {
    values->Delete(QString::fromLatin1(GetParam().name));
    QString errors;
    EXPECT_FALSE(Write(errors));
    EXPECT_EQ(errors, QString::fromUtf16(GetParam().line));
    EXPECT_TRUE(OutboxFiles().isEmpty());
    EXPECT_FALSE(values->ValueExists(QStringLiteral("ResultFileName")));
}

INSTANTIATE_TEST_SUITE_P(
    Checks, SingleCheckTest,
    testing::Values(CheckCase{"PATGeburtstag", u"- Geburtsdatum wurde beim Patienten nicht angegeben."},
                    CheckCase{"ADRDaMeCode", u"- Arzt konnte nicht gefunden werden."},
                    CheckCase{"TPTDaMeCode", u"- beim Therapeuten wurde kein Übermittlungscode eingegeben."},
                    CheckCase{"TPTDaMeFachgebiet", u"- beim Therapeuten wurde kein Fachgebiet eingegeben."}));

TEST_F(DiagnosticReportTest, DateOfBirthBeforeTheNeutralDateFails) {
    values->SetValueAsDateTime(QStringLiteral("PATGeburtstag"), -1);
    QString errors;
    EXPECT_FALSE(Write(errors));
    EXPECT_EQ(errors, QStringLiteral("- Geburtsdatum wurde beim Patienten nicht angegeben."));
}

TEST_F(DiagnosticReportTest, MissingPatientNameStillWritesTheFile) {
    values->Delete(QStringLiteral("PATNachname"));
    QString errors;
    EXPECT_TRUE(Write(errors));
    EXPECT_EQ(OutboxFiles().size(), 1);
}

TEST_F(DiagnosticReportTest, PdfIsAppendedFromItsBeginningWhereverTheStreamStands) {
    QBuffer pdf;
    pdf.setData(Pdf);
    pdf.open(QIODevice::ReadOnly);
    pdf.readAll();
    QString errors;
    ASSERT_TRUE(TnvDiagnosticReport::WriteDiagnosticReport(*values, pdf, errors, reportDate));
    EXPECT_TRUE(ReadAll(values->GetAsString(QStringLiteral("ResultFileName")))
                    .endsWith(QByteArray(QByteArray("\r\n") + Pdf)));
}

TEST_F(DiagnosticReportTest, FileThatCannotBeCreatedRaises) {
    // the folder exists, but no file can be made in it, not even by the administrator
    values->SetValueAsString(QStringLiteral("CFGDaMeOutbox"), QStringLiteral("/proc"));
    QString errors;
    EXPECT_THROW(Write(errors), norvik::Exception);
}
