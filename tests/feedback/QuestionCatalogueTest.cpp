#include "TQuestionCatalogue.h"
#include "TestEnvironment.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace norvik;

namespace {

QString text(const char16_t* value) {
    return QString::fromUtf16(value);
}

// One entry in a line: "#" for a heading, the number of tabs, the name, the caption, and the
// kept pairs as code=caption.
QString summary(const TContentInfo& info) {
    QStringList pairs;
    for (const TQuestionPair& pair : info.QuestionPairs)
        pairs.append(pair.Code + QLatin1Char('=') + pair.Caption);
    return (info.IsHeader ? QStringLiteral("#") : QString::number(info.Indent.size())) + QLatin1Char(' ') +
           info.QuestionName + QLatin1Char(':') + info.Caption + QLatin1Char('[') +
           pairs.join(QLatin1Char(',')) + QLatin1Char(']');
}

QStringList summaries(const TQuestionCatalogue& catalogue) {
    QStringList result;
    for (const TContentInfo& info : catalogue.Content())
        result.append(summary(info));
    return result;
}

QStringList lines(std::initializer_list<const char16_t*> values) {
    QStringList result;
    for (const char16_t* value : values)
        result.append(text(value));
    return result;
}

QString actualText(const TQuestionCatalogue& catalogue) {
    return catalogue.ActualQuestions().toString();
}

// Working folder of the test, restored afterwards; the catalogue's default name is relative.
class WorkingFolder {
public:
    explicit WorkingFolder(const QString& path)
        : m_saved(QDir::currentPath()) {
        QDir::setCurrent(path);
    }
    ~WorkingFolder() { QDir::setCurrent(m_saved); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    QString m_saved;
};

const QStringList BuiltInCatalogue = lines({
    u"# q01:Behandlungsergebnis[]",
    u"2 q01.1:Beschwerdesymptomatik[01=unverändert,02=besser,03=deutlich besser,04=beschwerdefrei,"
    u"05=kein Behandlungsziel,06=Zustand stabil]",
    u"2 q01.2:Gelenksmobilität[01=unverändert,02=besser,03=deutlich besser,"
    u"04=physiologisches Bewegungsausmaß,05=kein Behandlungsziel,06=Zustand stabil]",
    u"2 q01.3:Muskelstatus[01=unverändert,02=besser,03=deutlich besser,04=normoton,05=kein Behandlungsziel,"
    u"06=Zustand stabil]",
    u"2 q01.4:Alltagsaktivitäten[01=unverändert,02=besser,03=deutlich besser,04=normoton,"
    u"05=kein Behandlungsziel,06=Zustand stabil]",
    u"# q02:Compliance[]",
    u"1 q02:Compliance[01=sehr gut,02=gut,03=gering,04=nicht möglich]",
    u"# q03:Physiotherapeutische Fortsetzung[]",
    u"1 q03:Physiotherapeutische Fortsetzung[01=ja - baldmöglichst,02=ja - in 10-12 Wochen,"
    u"03=ja - nach ärztlicher Abklärung,04=ja - in regelmäßigen Abständen (1-2 mal jährlich),05=nein]",
    u"# q04:Procedere[]",
    u"1 q04:Procedere[01=Der Patient/die Patientin setzt aus zeitlichen Gründen die Therapie nicht fort.,"
    u"02=Der Patient/die Patientin setzt die Therapie aus finanziellen Gründen nicht fort.,"
    u"03=Das Behandlungsergebnis kann nicht beurteilt werden, da der Patient/die Patientin frühzeitig die "
    u"Therapieserie abgebrochen hat.,"
    u"04=Die Behandlungsserie wurde auf Grund eines stationären Aufenthaltes unterbrochen.,"
    u"05=Der Patient/die Patientin setzt die Behandlung im Rahmen einer Rehabilitation/Kur fort.,"
    u"06=Um die Alltagsaktivitäten so lange als möglich zu erhalten, ist das Fortsetzen der Therapie "
    u"unbedingt notwendig.]",
});

struct SourceCase {
    const char* title;
    const char16_t* source;
    QStringList entries;
    const char16_t* actual;
};

class QuestionSourceTest : public testing::TestWithParam<SourceCase> {};

TEST_P(QuestionSourceTest, BuildsTheEntries) {
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(text(GetParam().source));
    EXPECT_EQ(summaries(catalogue), GetParam().entries);
    EXPECT_EQ(actualText(catalogue), text(GetParam().actual));
}

INSTANTIATE_TEST_SUITE_P(
    Sources, QuestionSourceTest,
    testing::Values(
        SourceCase{"EmptySourceGivesBuiltIn", u"", BuiltInCatalogue, u"True"},
        SourceCase{"UnparsableTextGivesBuiltIn", u"kein JSON", BuiltInCatalogue, u"True"},
        SourceCase{"NullGivesBuiltIn", u"null", BuiltInCatalogue, u"True"},
        SourceCase{"MissingFileIsTakenForTextAndGivesBuiltIn", u"/no/such/folder/questions.json",
                   BuiltInCatalogue, u"True"},
        SourceCase{"EmptyQuestionList", u"{\"questions\":[]}", {}, u"True"},
        SourceCase{
            "OtherKeysGiveAnEmptyPageWithoutFallback", u"{\"fragen\":[{\"name\":\"x\"}]}", {}, u"False"},
        SourceCase{"EmptyObjectIsNoFallback", u"{}", {}, u"False"},
        SourceCase{"ArrayIsNoFallback", u"[{\"questions\":[]}]", {}, u"False"},
        SourceCase{"ScalarIsNoFallback", u"42", {}, u"False"},
        SourceCase{"QuestionsNoArray", u"{\"questions\":{\"name\":\"a\"}}", {}, u"True"},
        SourceCase{"HeadingAlone", u"{\"questions\":[{\"name\":\"a\",\"description\":\"Nur Text\"}]}",
                   lines({u"# a:Nur Text[]"}), u"True"},
        SourceCase{"OwnItemsFirstThenSubcategories",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\","
                   u"\"subcategories\":[{\"name\":\"a.1\",\"description\":\"A1\",\"items\":[{\"code\":\"01\","
                   u"\"caption\":\"x\"}]}],\"items\":[{\"code\":\"01\",\"caption\":\"y\"}]}]}",
                   lines({u"# a:A[]", u"1 a:A[01=y]", u"2 a.1:A1[01=x]"}), u"True"},
        SourceCase{
            "ItemWithoutCodeKeptWithEmptyCode",
            u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"items\":[{\"caption\":\"x\"}]}]}",
            lines({u"# a:A[]", u"1 a:A[=x]"}), u"True"},
        SourceCase{"ItemsWithoutCaptionDropped",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"items\":[{\"code\":\"01\"},"
                   u"{\"code\":\"02\",\"caption\":\"\"},{\"code\":\"03\",\"caption\":\"z\"},"
                   u"{\"code\":\"04\",\"caption\":null}]}]}",
                   lines({u"# a:A[]", u"1 a:A[03=z]"}), u"True"},
        SourceCase{"SubcategoryWithoutItemsLeavesNothing",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"subcategories\":["
                   u"{\"name\":\"a.1\",\"description\":\"A1\"},"
                   u"{\"name\":\"a.2\",\"description\":\"A2\",\"items\":[]}]}]}",
                   lines({u"# a:A[]", u"2 a.2:A2[]"}), u"True"},
        SourceCase{"SameNameTwice",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\"},{\"name\":\"a\",\"description\":"
                   u"\"B\"}]}",
                   lines({u"# a:A[]", u"# a:B[]"}), u"True"},
        SourceCase{"PlainValuesHoldNoQuestion",
                   u"{\"questions\":[null,5,\"x\",true,{\"name\":\"a\",\"description\":\"A\"}]}",
                   lines({u"# a:A[]"}), u"True"},
        SourceCase{"PlainValuesHoldNoItem",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"items\":[null,1,\"x\",[],"
                   u"{\"code\":\"01\",\"caption\":\"y\"}]}]}",
                   lines({u"# a:A[]", u"1 a:A[01=y]"}), u"True"},
        SourceCase{"ItemsNoArrayGivesAnEmptyBox",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"items\":5}]}",
                   lines({u"# a:A[]", u"1 a:A[]"}), u"True"},
        SourceCase{
            "NumbersReadAsText",
            u"{\"questions\":[{\"name\":7,\"description\":\"A\",\"items\":[{\"code\":1,\"caption\":2}]}]}",
            lines({u"# 7:A[]", u"1 7:A[1=2]"}), u"True"},
        SourceCase{"KeysAreExactInCase",
                   u"{\"questions\":[{\"Name\":\"a\",\"description\":\"A\",\"Items\":[{\"code\":\"1\","
                   u"\"caption\":\"x\"}]}]}",
                   lines({u"# :A[]"}), u"True"},
        SourceCase{"UnquotedKeysAccepted", u"{questions:[{name:\"a\",description=\"A\"}]}",
                   lines({u"# a:A[]"}), u"True"},
        SourceCase{"TruncatedBehindTheListKeepsIt",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\"}],\"weiter\":",
                   lines({u"# a:A[]"}), u"True"},
        // the list that broke off is not part of what was read, yet the text did parse
        SourceCase{"TruncatedInsideTheListGivesAnEmptyPage",
                   u"{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"items\":[{\"code\":\"01\","
                   u"\"caption\":\"x\"}]},{\"name\":\"b\",\"descr",
                   {},
                   u"False"}),
    [](const testing::TestParamInfo<SourceCase>& info) { return std::string(info.param.title); });

TEST(QuestionCatalogueTest, BuiltInLayoutInDesignPixels) {
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(QString());
    ASSERT_EQ(catalogue.Headings().size(), 4);
    ASSERT_EQ(catalogue.Boxes().size(), 7);
    const int headingTops[] = {4, 123, 176, 229};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(catalogue.Headings().at(i).Left, 0);
        EXPECT_EQ(catalogue.Headings().at(i).Top, headingTops[i]) << i;
    }
    const int boxTops[] = {31, 53, 75, 97, 150, 203, 256};
    for (int i = 0; i < 7; ++i) {
        const TAnswerBox& box = catalogue.Boxes().at(i);
        const bool subcategory = i < 4;
        EXPECT_EQ(box.Top, boxTops[i]) << i;
        EXPECT_EQ(box.Left, subcategory ? 32 : 16) << i;
        EXPECT_EQ(box.Width, subcategory ? 313 : 329) << i;
    }
    EXPECT_EQ(catalogue.ActualTop(), 278);
}

TEST(QuestionCatalogueTest, EntriesPointAtTheirBoxes) {
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(QString());
    int expectedBox = 0;
    for (const TContentInfo& info : catalogue.Content()) {
        if (info.IsHeader) {
            EXPECT_EQ(info.Combo, -1);
            EXPECT_TRUE(info.Indent.isEmpty());
            continue;
        }
        ASSERT_EQ(info.Combo, expectedBox++);
        const TAnswerBox& box = catalogue.Boxes().at(info.Combo);
        EXPECT_EQ(box.Hint, info.Caption);
        ASSERT_EQ(box.Items.size(), info.QuestionPairs.size());
        for (int i = 0; i < box.Items.size(); ++i)
            EXPECT_EQ(box.Items.at(i), info.QuestionPairs.at(i).Caption);
        EXPECT_EQ(box.ItemIndex, -1);
        EXPECT_TRUE(box.Text.isEmpty());
    }
    EXPECT_EQ(expectedBox, catalogue.Boxes().size());
}

TEST(QuestionCatalogueTest, BoxHeightComesFromTheWidgetSide) {
    TQuestionCatalogue catalogue;
    catalogue.setBoxHeight(30);
    catalogue.CreateQuestions(
        QStringLiteral("{\"questions\":[{\"name\":\"a\",\"description\":\"A\",\"items\":[],"
                       "\"subcategories\":[{\"name\":\"b\",\"items\":[]}]},"
                       "{\"name\":\"c\",\"description\":\"C\"}]}"));
    ASSERT_EQ(catalogue.Boxes().size(), 2);
    EXPECT_EQ(catalogue.Boxes().at(0).Top, 31);
    EXPECT_EQ(catalogue.Boxes().at(1).Top, 62);
    EXPECT_EQ(catalogue.Headings().at(1).Top, 97);
    EXPECT_EQ(catalogue.ActualTop(), 124);
}

TEST(QuestionCatalogueTest, ReadsAFileAsUtf8WithByteOrderMark) {
    testsupport::TempDir dir;
    const QString path = dir.writeFile(
        QStringLiteral("fragen.json"),
        "\xEF\xBB\xBF{\"questions\":[{\"name\":\"a\",\"description\":\"Gr\xC3\xBC\xC3\x9F\x65\",\"items\":"
        "[{\"code\":\"01\",\"caption\":\"m\xC3\xA4\xC3\x9Fig\"}]}]}");
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(path);
    EXPECT_EQ(summaries(catalogue), lines({u"# a:Grüße[]", u"1 a:Grüße[01=mäßig]"}));
}

TEST(QuestionCatalogueTest, EmptyFileGivesBuiltIn) {
    testsupport::TempDir dir;
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(dir.writeFile(QStringLiteral("leer.json"), ""));
    EXPECT_EQ(summaries(catalogue), BuiltInCatalogue);
}

TEST(QuestionCatalogueTest, FileInTheWorkingFolderTakesOver) {
    testsupport::TempDir dir;
    dir.writeFile(QStringLiteral("questions.json"),
                  "{\"questions\":[{\"name\":\"eigen\",\"description\":\"E\"}]}");
    const WorkingFolder folder(dir.path());
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(QStringLiteral("questions.json"));
    EXPECT_EQ(summaries(catalogue), lines({u"# eigen:E[]"}));
}

TEST(QuestionCatalogueTest, NoFileInTheWorkingFolderGivesBuiltIn) {
    testsupport::TempDir dir;
    const WorkingFolder folder(dir.path());
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(QStringLiteral("questions.json"));
    EXPECT_EQ(summaries(catalogue), BuiltInCatalogue);
}

TEST(QuestionCatalogueTest, FolderIsNoFile) {
    testsupport::TempDir dir;
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(dir.path());
    EXPECT_EQ(summaries(catalogue), BuiltInCatalogue);
}

TEST(QuestionCatalogueTest, CreatingAgainReplacesTheEntries) {
    TQuestionCatalogue catalogue;
    catalogue.CreateQuestions(QString());
    catalogue.CreateQuestions(QStringLiteral("{\"questions\":[{\"name\":\"a\",\"description\":\"A\"}]}"));
    EXPECT_EQ(summaries(catalogue), lines({u"# a:A[]"}));
    EXPECT_EQ(catalogue.Boxes().size(), 0);
    EXPECT_EQ(catalogue.Headings().size(), 1);
    EXPECT_EQ(catalogue.ActualTop(), 31);
}

TEST(QuestionCatalogueTest, NothingReadLeavesActualQuestionsUnassigned) {
    const TQuestionCatalogue catalogue;
    EXPECT_TRUE(catalogue.ActualQuestions().isUnassigned());
}

} // namespace
