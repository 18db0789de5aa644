#include "DBExceptions.h"
#include "FeedbackRows.h"
#include "InvDBConnection.h"
#include "TDateTimeUtils.h"
#include "TLastFeedbacksModel.h"
#include "TmodData.h"

#include <gtest/gtest.h>

namespace {

struct Patient {
    qint64 ID;
    const char* FirstName;
    const char* LastName;
};

struct Document {
    qint64 ID;
    qint64 PatientID;
    const char* Date;
    const char* Therapist;
};

// what a line of the list shows, and the hidden ID
struct Line {
    qint64 DOCID;
    const char* Date;
    const char* Patient;
    const char* Therapist;
};

const std::vector<Patient> Patients{
    {1, "Anna", "Huber"}, {2, "", "Gruber"}, {3, "Eva", "Bauer"}, {4, "Bernd", "Huber"}};

class LastFeedbacksModelTest : public ::testing::Test {
protected:
    TmodData Data;
    TLastFeedbacksModel Model;

    norvik::InvDBConnection& Connection() { return *Data.GetConnection(); }

    void SetUp() override {
        ASSERT_NE(Data.GetConnection(), nullptr);
        feedbackrows::Clear(Connection());
        for (const Patient& patient : Patients)
            feedbackrows::AddPatient(Connection(), patient.ID, QString::fromUtf8(patient.FirstName),
                                     QString::fromUtf8(patient.LastName));
    }

    void TearDown() override { feedbackrows::Clear(Connection()); }

    void AddDocuments(const std::vector<Document>& ADocuments) {
        for (const Document& document : ADocuments)
            feedbackrows::AddDocument(Connection(), document.ID, document.PatientID,
                                      QString::fromUtf8(document.Date),
                                      QString::fromUtf8(document.Therapist));
    }

    QString Cell(int ARow, int AColumn) const { return Model.index(ARow, AColumn).data().toString(); }

    void ExpectLines(const std::vector<Line>& AExpected) const {
        ASSERT_EQ(Model.rowCount(), static_cast<int>(AExpected.size()));
        for (int row = 0; row < Model.rowCount(); ++row) {
            const Line& line = AExpected[static_cast<size_t>(row)];
            SCOPED_TRACE(row);
            EXPECT_EQ(Model.index(row, TLastFeedbacksModel::tvDOCDOCID).data().toLongLong(), line.DOCID);
            EXPECT_EQ(Cell(row, TLastFeedbacksModel::tvDOCColumn1), QString::fromUtf8(line.Date));
            EXPECT_EQ(Cell(row, TLastFeedbacksModel::tvDOCColumn2), QString::fromUtf8(line.Patient));
            EXPECT_EQ(Cell(row, TLastFeedbacksModel::tvDOCColumn3), QString::fromUtf8(line.Therapist));
        }
    }
};

struct ListCase {
    const char* Name;
    std::vector<Document> Documents;
    std::vector<Line> Expected;
};

class LastFeedbacksListTest : public LastFeedbacksModelTest,
                              public ::testing::WithParamInterface<ListCase> {};

// Newest first; of documents of the same moment, the last name decides, then the first name.
TEST_P(LastFeedbacksListTest, ListsAtMostFiveNewestFirst) {
    AddDocuments(GetParam().Documents);
    Model.Refresh(Connection());
    ExpectLines(GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(Documents, LastFeedbacksListTest,
                         ::testing::Values(ListCase{"None", {}, {}},
                                           ListCase{
                                               "Three",
                                               {{101, 1, "2026-03-10 09:15:00", "Maria Steiner"},
                                                {102, 2, "2026-03-12 14:30:00", "Paul Wagner"},
                                                {103, 3, "2026-03-10 09:15:00", "Maria Steiner"}},
                                               {{102, "12.03.2026 14:30", "Gruber", "Paul Wagner"},
                                                {103, "10.03.2026 09:15", "Eva Bauer", "Maria Steiner"},
                                                {101, "10.03.2026 09:15", "Anna Huber", "Maria Steiner"}}},
                                           ListCase{"Seven",
                                                    {{201, 1, "2026-01-05 08:00:00", "Maria Steiner"},
                                                     {202, 2, "2026-02-01 10:00:00", "Paul Wagner"},
                                                     {203, 3, "2026-03-01 11:00:00", "Maria Steiner"},
                                                     {204, 4, "2026-03-01 11:00:00", "Paul Wagner"},
                                                     {205, 1, "2026-03-01 11:00:00", "Maria Steiner"},
                                                     {206, 2, "2025-12-24 09:00:00", "Paul Wagner"},
                                                     {207, 3, "2026-04-15 16:45:00", "Maria Steiner"}},
                                                    {{207, "15.04.2026 16:45", "Eva Bauer", "Maria Steiner"},
                                                     {203, "01.03.2026 11:00", "Eva Bauer", "Maria Steiner"},
                                                     {205, "01.03.2026 11:00", "Anna Huber", "Maria Steiner"},
                                                     {204, "01.03.2026 11:00", "Bernd Huber", "Paul Wagner"},
                                                     {202, "01.02.2026 10:00", "Gruber", "Paul Wagner"}}}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(LastFeedbacksModelTest, ADeletedPatientTakesItsDocumentsOut) {
    AddDocuments({{101, 1, "2026-03-10 09:15:00", "Maria Steiner"},
                  {102, 2, "2026-03-12 14:30:00", "Paul Wagner"},
                  {103, 2, "2026-03-11 08:00:00", "Paul Wagner"}});
    feedbackrows::DeletePatient(Connection(), 2);
    Model.Refresh(Connection());
    ExpectLines({{101, "10.03.2026 09:15", "Anna Huber", "Maria Steiner"}});
}

// The name stands as first name, blank, last name, with blanks at either end taken away.
TEST_F(LastFeedbacksModelTest, TrimsThePatientNameAsAWhole) {
    feedbackrows::AddPatient(Connection(), 5, QStringLiteral(" Eva  Maria"), QString());
    feedbackrows::AddPatient(Connection(), 6, QString(), QStringLiteral("Öztürk "));
    AddDocuments({{301, 5, "2026-03-10 09:15:00", ""}, {302, 6, "2026-03-09 09:15:00", ""}});
    Model.Refresh(Connection());
    ExpectLines({{301, "10.03.2026 09:15", "Eva  Maria", ""}, {302, "09.03.2026 09:15", "Öztürk", ""}});
}

TEST_F(LastFeedbacksModelTest, KeepsTheWholeSixtyFourBitDocumentID) {
    AddDocuments({{30000000017, 1, "2026-03-10 09:15:00", "Maria Steiner"}});
    Model.Refresh(Connection());
    ASSERT_EQ(Model.rowCount(), 1);
    EXPECT_EQ(Model.index(0, TLastFeedbacksModel::tvDOCDOCID).data().toLongLong(), 30000000017);
}

// A list that cannot be read leaves the rows as they were and lets the failure through.
TEST_F(LastFeedbacksModelTest, AFailingQueryRaisesAndKeepsTheRows) {
    AddDocuments({{101, 1, "2026-03-10 09:15:00", "Maria Steiner"}});
    Model.Refresh(Connection());
    Connection().PSExecuteStatement(QStringLiteral("ALTER TABLE tblDokumente RENAME TO tblDokumenteAside"));
    EXPECT_ANY_THROW(Model.Refresh(Connection()));
    Connection().PSExecuteStatement(QStringLiteral("ALTER TABLE tblDokumenteAside RENAME TO tblDokumente"));
    ExpectLines({{101, "10.03.2026 09:15", "Anna Huber", "Maria Steiner"}});
}

TEST_F(LastFeedbacksModelTest, ColumnsCarryTheirCaptions) {
    const QStringList expected{QStringLiteral("Datum"), QStringLiteral("Patient"),
                               QStringLiteral("Therapeut"), QStringLiteral("DOCID")};
    ASSERT_EQ(Model.columnCount(), expected.size());
    for (int column = 0; column < Model.columnCount(); ++column)
        EXPECT_EQ(Model.headerData(column, Qt::Horizontal).toString(), expected.at(column));
}

TEST_F(LastFeedbacksModelTest, RowsCanBeSelectedButNotEdited) {
    Model.SetRows(
        {TLastFeedbackRow{46000.5, QStringLiteral("Anna Huber"), QStringLiteral("Maria Steiner"), 1}});
    const Qt::ItemFlags flags = Model.flags(Model.index(0, TLastFeedbacksModel::tvDOCColumn2));
    EXPECT_TRUE(flags.testFlag(Qt::ItemIsSelectable));
    EXPECT_FALSE(flags.testFlag(Qt::ItemIsEditable));
}

struct DateCase {
    double Value;
    const char* Text;
};

class DateTextTest : public ::testing::TestWithParam<DateCase> {};

// the Austrian short date with hours and minutes, seconds not shown; a document stored with
// its day alone shows no time
TEST_P(DateTextTest, ShowsDayMonthYearHoursAndMinutes) {
    EXPECT_EQ(TLastFeedbacksModel::DateText(GetParam().Value), QString::fromUtf8(GetParam().Text));
}

INSTANTIATE_TEST_SUITE_P(
    Dates, DateTextTest,
    ::testing::Values(DateCase{46000.0, "09.12.2025"}, DateCase{46000.75, "09.12.2025 18:00"},
                      DateCase{46001.0 + (9 * 60 + 5 + 59.0 / 60) / 1440, "10.12.2025 09:05"}));

} // namespace
