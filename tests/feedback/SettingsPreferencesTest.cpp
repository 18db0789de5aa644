#include "BuiltInResources.h"
#include "InvDBConnection.h"
#include "SettingsTestDatabase.h"
#include "TSettingsPreferences.h"
#include "TestEnvironment.h"
#include "TnvNamedValues.h"

#include <QFile>

using namespace norvik;

namespace {

// a user who gives the same answer to every question, and counts the questions
struct ScriptedAnswer {
    explicit ScriptedAnswer(int AAnswer)
        : Answer(AAnswer) {}

    int Answer;
    int Asked = 0;
    QStringList Choices;

    TSettingsPreferences::TAskChoice Callback() {
        return [this](const QString& ATitle, const QString& AText, const QStringList& AChoices) {
            ++Asked;
            EXPECT_EQ(ATitle, u"Weiterer Therapeut");
            EXPECT_EQ(AText, u"Möchten Sie mehr als einen Therapeuten einrichten?");
            Choices = AChoices;
            return Answer;
        };
    }
};

TTherapistTexts Named(const QString& AName) {
    return {AName, {}, {}, {}};
}

class SettingsPreferencesTest : public SettingsTestDatabase {
protected:
    TSettingsPreferences Prefs;
    ScriptedAnswer Yes{0};

    void Load() { Prefs.LoadPreferences(Conn()); }

    // the list in memory with these names, the first one shown
    void LoadNames(const QStringList& ANames) {
        for (const QString& name : ANames)
            AddTherapist(name);
        Load();
    }

    void ShowIndex(int AIndex) {
        while (Prefs.TPTIndex() < AIndex)
            ASSERT_TRUE(Prefs.NextClick(Prefs.ShowTPT(), Yes.Callback()));
    }

    QStringList NamesInMemory() const {
        QStringList names;
        for (const auto& tpt : Prefs.TPTs())
            names << tpt->GetAsString(QStringLiteral("TPTZusatzText1"));
        return names;
    }

    void Save() { Prefs.Save(Conn(), Prefs.ShowTPT(), Prefs.DaMe()); }
};

TEST_F(SettingsPreferencesTest, AnEmptyTableGivesOneBlankTherapistWithAllButtonsOff) {
    Load();
    ASSERT_EQ(Prefs.TPTs().size(), 1);
    EXPECT_EQ(Prefs.TPTIndex(), 0);
    EXPECT_EQ(Prefs.ShowTPT(), TTherapistTexts{});
    EXPECT_FALSE(Prefs.CanPrev());
    EXPECT_FALSE(Prefs.CanNext());
    EXPECT_FALSE(Prefs.CanRemove());
}

TEST_F(SettingsPreferencesTest, TherapistsAreReadInTheOrderOfTheirNamesWithTheirFourTexts) {
    AddTherapist(QStringLiteral("Zoe Zach"));
    const qint64 anna = AddTherapist(QStringLiteral("Anna Alt"), QStringLiteral("Physiotherapeutin"),
                                     QStringLiteral("63"), QStringLiteral("METHERPY"));
    Load();
    EXPECT_EQ(NamesInMemory(), (QStringList{QStringLiteral("Anna Alt"), QStringLiteral("Zoe Zach")}));
    EXPECT_EQ(Prefs.ShowTPT(),
              (TTherapistTexts{QStringLiteral("Anna Alt"), QStringLiteral("Physiotherapeutin"),
                               QStringLiteral("63"), QStringLiteral("METHERPY")}));
    EXPECT_EQ(Prefs.TPTs().first()->GetAsIdentifier(QStringLiteral("TPTID")), anna);
}

TEST_F(SettingsPreferencesTest, TheDaMeBlockIsReadAndAMissingOneIsEmpty) {
    Load();
    EXPECT_EQ(Prefs.DaMe(), TDaMeSettings{});
    const TDaMeSettings stored{QStringLiteral("/srv/dame/out"), QStringLiteral("/opt/dame/send.sh"),
                               QStringLiteral("/home/praxis/vorlage.docx")};
    StoreDaMe(stored);
    Load();
    EXPECT_EQ(Prefs.DaMe(), stored);
}

struct FilledCase {
    const char* Name;
    qint64 ID;
    const char* TherapistName;
    bool Filled;
};

class FilledTest : public ::testing::TestWithParam<FilledCase> {};

// blanks count as a name for the buttons; only saving looks at the trimmed name
TEST_P(FilledTest, ATherapistIsFilledByItsNumberOrAName) {
    const FilledCase& c = GetParam();
    auto tpt = TnvNamedValues::Create();
    if (c.ID != 0)
        tpt->SetValueAsIdentifier(QStringLiteral("TPTID"), c.ID);
    if (c.TherapistName)
        tpt->SetValueAsString(QStringLiteral("TPTZusatzText1"), QString::fromUtf8(c.TherapistName));
    EXPECT_EQ(TSettingsPreferences::IsFilled(*tpt), c.Filled);
}

INSTANTIATE_TEST_SUITE_P(Therapists, FilledTest,
                         ::testing::Values(FilledCase{"New", 0, nullptr, false},
                                           FilledCase{"NewEmptyName", 0, "", false},
                                           FilledCase{"NewBlankName", 0, "   ", true},
                                           FilledCase{"NewWithName", 0, "Anna", true},
                                           FilledCase{"StoredWithoutName", 10000001, "", true},
                                           FilledCase{"StoredWithName", 10000001, "Anna", true}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

struct ButtonCase {
    const char* Name;
    QStringList Stored;
    int Index;
    // the name typed into the shown therapist, if any
    const char* Typed;
    bool Prev;
    bool Next;
    bool Remove;
};

class ButtonRulesTest : public SettingsPreferencesTest, public ::testing::WithParamInterface<ButtonCase> {};

TEST_P(ButtonRulesTest, ButtonsFollowThePositionAndTheLastTherapist) {
    const ButtonCase& c = GetParam();
    LoadNames(c.Stored);
    ShowIndex(c.Index);
    if (c.Typed)
        Prefs.SetTPTName(QString::fromUtf8(c.Typed));
    EXPECT_EQ(Prefs.CanPrev(), c.Prev);
    EXPECT_EQ(Prefs.CanNext(), c.Next);
    EXPECT_EQ(Prefs.CanRemove(), c.Remove);
}

const QStringList TwoStored{QStringLiteral("Anna"), QStringLiteral("Bert")};

INSTANTIATE_TEST_SUITE_P(
    Positions, ButtonRulesTest,
    ::testing::Values(ButtonCase{"EmptyTable", {}, 0, nullptr, false, false, false},
                      ButtonCase{"EmptyTableNameTyped", {}, 0, "Anna", false, true, false},
                      ButtonCase{"EmptyTableBlanksTyped", {}, 0, "  ", false, true, false},
                      ButtonCase{"OneStored", {QStringLiteral("Anna")}, 0, nullptr, false, true, false},
                      ButtonCase{"FirstOfTwo", TwoStored, 0, nullptr, false, true, true},
                      ButtonCase{"LastOfTwo", TwoStored, 1, nullptr, true, true, true},
                      // Next behind the last stored one adds a blank one
                      ButtonCase{"NewBlankBehindTwo", TwoStored, 2, nullptr, true, false, true},
                      ButtonCase{"NewNamedBehindTwo", TwoStored, 2, "Carla", true, true, true},
                      ButtonCase{"StoredNameCleared", TwoStored, 1, "", true, true, true}),
    [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(SettingsPreferencesTest, NextOnTheSoleTherapistAsksEachTimeAndNoChangesNothing) {
    LoadNames({QStringLiteral("Anna")});
    for (const int answer : {1, -1, 1}) {
        ScriptedAnswer user{answer};
        EXPECT_FALSE(Prefs.NextClick(Named(QStringLiteral("Anna geändert")), user.Callback()));
        EXPECT_EQ(user.Asked, 1);
        EXPECT_EQ(user.Choices,
                  (QStringList{QStringLiteral("Ja, ich benötige weitere Therapeuten"),
                               QStringLiteral("Ups nein, ich brauche keine weiteren Therapeuten")}));
        EXPECT_EQ(NamesInMemory(), QStringList{QStringLiteral("Anna")});
        EXPECT_EQ(Prefs.TPTIndex(), 0);
    }
}

TEST_F(SettingsPreferencesTest, YesAddsABlankTherapistBehindAndStoresTheEdits) {
    LoadNames({QStringLiteral("Anna")});
    const TTherapistTexts edits{QStringLiteral("Anna Alt"), QStringLiteral("Physiotherapeutin"),
                                QStringLiteral("63"), QStringLiteral("MEANNA")};
    EXPECT_TRUE(Prefs.NextClick(edits, Yes.Callback()));
    EXPECT_EQ(Prefs.TPTIndex(), 1);
    EXPECT_EQ(Prefs.ShowTPT(), TTherapistTexts{});
    EXPECT_FALSE(Prefs.CanNext());
    Prefs.PrevClick(Named(QStringLiteral("Bert")));
    EXPECT_EQ(Prefs.ShowTPT(), edits);
    EXPECT_EQ(NamesInMemory(), (QStringList{QStringLiteral("Anna Alt"), QStringLiteral("Bert")}));
}

TEST_F(SettingsPreferencesTest, WithSeveralTherapistsNextMovesWithoutAsking) {
    LoadNames(TwoStored);
    ScriptedAnswer user{1};
    EXPECT_TRUE(Prefs.NextClick(Prefs.ShowTPT(), user.Callback()));
    EXPECT_EQ(user.Asked, 0);
    EXPECT_EQ(Prefs.ShowTPT().TPTZusatzText1, u"Bert");
    EXPECT_EQ(Prefs.TPTs().size(), 2);
}

TEST_F(SettingsPreferencesTest, PrevStoresTheEditsAndStopsAtTheFirst) {
    LoadNames(TwoStored);
    Prefs.PrevClick(Named(QStringLiteral("Anna neu")));
    EXPECT_EQ(Prefs.TPTIndex(), 0);
    EXPECT_EQ(Prefs.ShowTPT().TPTZusatzText1, u"Anna neu");
}

struct RemoveCase {
    const char* Name;
    int Index;
    int ExpectedIndex;
    const char* Shown;
    QStringList Left;
};

class RemoveTest : public SettingsPreferencesTest, public ::testing::WithParamInterface<RemoveCase> {};

TEST_P(RemoveTest, RemovingShowsTheTherapistThatTookThePlaceOrTheOneBefore) {
    const RemoveCase& c = GetParam();
    LoadNames({QStringLiteral("Anna"), QStringLiteral("Bert"), QStringLiteral("Carla")});
    ShowIndex(c.Index);
    // edits of the removed therapist are dropped with it
    Prefs.SetTPTName(QStringLiteral("verworfen"));
    Prefs.RemoveClick();
    EXPECT_EQ(Prefs.TPTIndex(), c.ExpectedIndex);
    EXPECT_EQ(Prefs.ShowTPT().TPTZusatzText1, QString::fromUtf8(c.Shown));
    EXPECT_EQ(NamesInMemory(), c.Left);
}

INSTANTIATE_TEST_SUITE_P(
    Positions, RemoveTest,
    ::testing::Values(RemoveCase{"First", 0, 0, "Bert", {QStringLiteral("Bert"), QStringLiteral("Carla")}},
                      RemoveCase{"Middle", 1, 1, "Carla", {QStringLiteral("Anna"), QStringLiteral("Carla")}},
                      RemoveCase{"Last", 2, 1, "Bert", {QStringLiteral("Anna"), QStringLiteral("Bert")}}),
    [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(SettingsPreferencesTest, TheSoleTherapistIsNeverRemoved) {
    LoadNames({QStringLiteral("Anna")});
    Prefs.RemoveClick();
    EXPECT_EQ(NamesInMemory(), QStringList{QStringLiteral("Anna")});
}

TEST_F(SettingsPreferencesTest, SaveInsertsNamedNewTherapistsAndSkipsBlankOnes) {
    Load();
    ASSERT_TRUE(Prefs.NextClick(Named(QStringLiteral("Anna")), Yes.Callback()));
    ASSERT_TRUE(Prefs.NextClick(Named(QStringLiteral("   ")), Yes.Callback()));
    ASSERT_TRUE(Prefs.NextClick(TTherapistTexts{QStringLiteral("Bert"), QStringLiteral("Masseur"),
                                                QStringLiteral("64"), QStringLiteral("MEBERT")},
                                Yes.Callback()));
    // the blank one behind stays unwritten as well
    Prefs.Save(Conn(), TTherapistTexts{}, Prefs.DaMe());
    const QStringList rows = TherapistRows();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_TRUE(rows[0].endsWith(u"|Anna|||"));
    EXPECT_TRUE(rows[1].endsWith(u"|Bert|Masseur|64|MEBERT"));
    // the new ones now know their rows: a second save changes nothing
    Prefs.Save(Conn(), TTherapistTexts{}, Prefs.DaMe());
    EXPECT_EQ(TherapistRows(), rows);
}

TEST_F(SettingsPreferencesTest, SaveUpdatesStoredTherapistsAlsoWithAnEmptyName) {
    const qint64 anna = AddTherapist(QStringLiteral("Anna"), QStringLiteral("alt"));
    Load();
    Prefs.Save(Conn(),
               TTherapistTexts{{}, QStringLiteral("neu"), QStringLiteral("63"), QStringLiteral("MEANNA")},
               Prefs.DaMe());
    EXPECT_EQ(TherapistRows(), QStringList{QString::number(anna) + QStringLiteral("||neu|63|MEANNA")});
}

TEST_F(SettingsPreferencesTest, SaveDeletesTheRowsOfRemovedTherapists) {
    LoadNames({QStringLiteral("Anna"), QStringLiteral("Bert"), QStringLiteral("Carla")});
    ShowIndex(1);
    Prefs.RemoveClick();
    EXPECT_EQ(TherapistNames().size(), 3);
    Save();
    EXPECT_EQ(TherapistNames(), (QStringList{QStringLiteral("Anna"), QStringLiteral("Carla")}));
}

TEST_F(SettingsPreferencesTest, SaveDeletesEveryRowThatIsNotInTheList) {
    LoadNames({QStringLiteral("Anna")});
    // a row that is not in the list is one the user removed
    AddTherapist(QStringLiteral("Bert"));
    Save();
    EXPECT_EQ(TherapistNames(), QStringList{QStringLiteral("Anna")});
}

TEST_F(SettingsPreferencesTest, SaveWritesTheDaMeBlockWithTheThreeValues) {
    Load();
    const TDaMeSettings dame{QStringLiteral("/srv/dame/out"), QString(), QStringLiteral("/tmp/v.docx")};
    Prefs.Save(Conn(), TTherapistTexts{}, dame);
    EXPECT_EQ(StoredDaMe(), dame);
    EXPECT_EQ(Prefs.DaMe(), dame);
}

TEST_F(SettingsPreferencesTest, AFailingDatabaseStepPassesThroughAndKeepsWhatWasWritten) {
    LoadNames({QStringLiteral("Anna")});
    ASSERT_TRUE(Prefs.NextClick(Prefs.ShowTPT(), Yes.Callback()));
    Conn().PSExecuteStatement(QStringLiteral("ALTER TABLE sysConfig RENAME TO sysConfigAway"));
    EXPECT_ANY_THROW(Prefs.Save(Conn(), Named(QStringLiteral("Bert")), TDaMeSettings{}));
    Conn().PSExecuteStatement(QStringLiteral("ALTER TABLE sysConfigAway RENAME TO sysConfig"));
    EXPECT_EQ(TherapistNames(), (QStringList{QStringLiteral("Anna"), QStringLiteral("Bert")}));
}

TEST(SettingsTemplateTest, TheBuiltInTemplateIsWrittenAsItStands) {
    testsupport::TempDir dir;
    const QString path = dir.filePath(QStringLiteral("Muster.docx"));
    QString error;
    ASSERT_TRUE(TSettingsPreferences::WriteTemplate(path, error)) << error.toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray expected = BuiltInResources::feedbackTemplate();
    EXPECT_FALSE(expected.isEmpty());
    EXPECT_EQ(file.readAll(), expected);
}

TEST(SettingsTemplateTest, AnUnwritablePathGivesTheReason) {
    testsupport::TempDir dir;
    QString error;
    EXPECT_FALSE(
        TSettingsPreferences::WriteTemplate(dir.filePath(QStringLiteral("fehlt/Muster.docx")), error));
    EXPECT_FALSE(error.isEmpty());
}

} // namespace
