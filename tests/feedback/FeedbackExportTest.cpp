#include "Clock.h"
#include "FixedClock.h"
#include "TDateTimeUtils.h"
#include "TFeedbackExport.h"
#include "TFeedbackWizardState.h"
#include "TestEnvironment.h"
#include "TnvDiagnosticReport.h"

#include <QBuffer>
#include <gtest/gtest.h>
#include <ostream>

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

class FeedbackExportTest : public testing::Test {
protected:
    testsupport::FixedClock clock{"2026-03-03 14:05:00"};
    testsupport::TempDir outbox;
    TFeedbackWizardState state;

    void SetUp() override {
        state.FConfig->SetValueAsString(QStringLiteral("ExportFolder"), outbox.path());
        state.FTPT->SetValueAsString(QStringLiteral("TPTZusatzText1"), QStringLiteral("Anna Berger"));
        state.FTPT->SetValueAsString(QStringLiteral("TPTZusatzText2"), QStringLiteral("Physiotherapeutin"));
        state.FTPT->SetValueAsString(QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("PHY"));
        state.FTPT->SetValueAsString(QStringLiteral("TPTDaMeCode"), QStringLiteral("ABC"));
        state.edtDOCMailbox = QStringLiteral("XYZ");
        state.edtPATSVNr = QStringLiteral("1234150580");
        state.edtPATLastname = QStringLiteral("Muster");
        state.edtPATFirstname = QStringLiteral("Maria");
        state.edtPATTitle2.SetText(QStringLiteral("MSc"));
        state.edtPATStreet = QStringLiteral("Hauptstraße 1");
        state.edtPATZIPCity = QStringLiteral("A-1010 Wien");
    }

    QString Exported(const char* AName) const {
        return state.FExport->GetAsString(QString::fromLatin1(AName));
    }

    bool Write(QString& AErrors) {
        QBuffer pdf;
        pdf.open(QIODevice::ReadOnly);
        return norvik::TnvDiagnosticReport::WriteDiagnosticReport(*state.FExport, pdf, AErrors,
                                                                  norvik::Clock::todayDate());
    }
};

} // namespace

TEST_F(FeedbackExportTest, ExportValuesComeFromTheWizard) {
    state.FExport->SetValueAsString(QStringLiteral("ResultFileName"), QStringLiteral("alt"));
    TFeedbackExport::FillExport(state);
    EXPECT_EQ(Exported("CFGDaMeOutbox"), outbox.path());
    EXPECT_EQ(Exported("ADRDaMeCode"), QStringLiteral("XYZ"));
    EXPECT_EQ(Exported("TPTZusatzText1"), QStringLiteral("Anna Berger"));
    EXPECT_EQ(Exported("TPTZusatzText2"), QStringLiteral("Physiotherapeutin"));
    EXPECT_EQ(Exported("TPTDaMeFachgebiet"), QStringLiteral("PHY"));
    EXPECT_EQ(Exported("TPTDaMeCode"), QStringLiteral("ABC"));
    EXPECT_EQ(Exported("PATSVNr"), QStringLiteral("1234150580"));
    EXPECT_EQ(state.FExport->GetAsVariant(QStringLiteral("PATGeburtstag")),
              norvik::Variant::fromDate(norvik::TDateTimeUtils::EncodeDate(1980, 5, 15)));
    EXPECT_EQ(Exported("PATNachname"), QStringLiteral("Muster"));
    EXPECT_EQ(Exported("PATVorname"), QStringLiteral("Maria"));
    EXPECT_EQ(Exported("PATTitel"), QString());
    EXPECT_EQ(Exported("PATTitel2"), QStringLiteral("MSc"));
    EXPECT_EQ(Exported("PATPrivStrasse"), QStringLiteral("Hauptstraße 1"));
    EXPECT_EQ(Exported("PATPrivOrtsname"), QStringLiteral("Wien"));
    EXPECT_EQ(Exported("PATPrivPLZ"), QStringLiteral("1010"));
    // filled anew: nothing of an earlier run stays
    EXPECT_FALSE(state.FExport->ValueExists(QStringLiteral("ResultFileName")));
    EXPECT_EQ(state.FExport->Count(), 15);
}

TEST_F(FeedbackExportTest, ExportedValuesWriteTheOutboxFile) {
    TFeedbackExport::FillExport(state);
    QString errors;
    ASSERT_TRUE(Write(errors)) << errors.toStdString();
    EXPECT_TRUE(state.FExport->GetAsString(QStringLiteral("ResultFileName")).startsWith(outbox.path()));
}

TEST_F(FeedbackExportTest, NineDigitNumberHasNoDateOfBirthAndTheExportFails) {
    state.edtPATSVNr = QStringLiteral("123415058");
    TFeedbackExport::FillExport(state);
    EXPECT_EQ(state.FExport->GetAsDateTime(QStringLiteral("PATGeburtstag")), 0);
    QString errors;
    EXPECT_FALSE(Write(errors));
    EXPECT_EQ(errors, QStringLiteral("- Geburtsdatum wurde beim Patienten nicht angegeben."));
}

TEST_F(FeedbackExportTest, EmptyActiveTherapistFailsWithBothTherapistLines) {
    state.FTPT = norvik::TnvNamedValues::Create();
    TFeedbackExport::FillExport(state);
    QString errors;
    EXPECT_FALSE(Write(errors));
    EXPECT_EQ(errors, QStringLiteral("- beim Therapeuten wurde kein Übermittlungscode eingegeben.\r\n"
                                     "- beim Therapeuten wurde kein Fachgebiet eingegeben."));
}
