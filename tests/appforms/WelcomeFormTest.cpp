#include "FeedbackRows.h"
#include "InvDBConnection.h"
#include "TEmptyTextGrid.h"
#include "TLastFeedbacksModel.h"
#include "TWelcomeForm.h"
#include "TWelcomeTile.h"
#include "TmodData.h"

#include <QEnterEvent>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

// which hook the tiles and the button raised, with the sender they passed
struct HookCalls {
    QStringList Names;
    QList<QObject*> Senders;

    TnvStartFormEvent Hook(const QString& AName) {
        return [this, AName](QObject* Sender) {
            Names << AName;
            Senders << Sender;
        };
    }
};

class WelcomeFormTest : public ::testing::Test {
protected:
    TmodData Data;
    TWelcomeForm* Form = nullptr;
    HookCalls Calls;

    void SetUp() override {
        ASSERT_NE(Data.GetConnection(), nullptr);
        feedbackrows::Clear(*Data.GetConnection());
        Form = TWelcomeForm::GetWelcomeForm(Data);
        Form->resize(1000, 640);
    }

    void TearDown() override {
        delete TWelcomeForm::Instance();
        feedbackrows::Clear(*Data.GetConnection());
    }

    void SetAllHooks() {
        Form->SetOnStartWizard(Calls.Hook(QStringLiteral("wizard")));
        Form->SetOnStartConfig(Calls.Hook(QStringLiteral("config")));
        Form->SetOnStartFeedbackList(Calls.Hook(QStringLiteral("feedbacks")));
        Form->SetOnStartPatientList(Calls.Hook(QStringLiteral("patients")));
    }

    void AddThreeDocuments() {
        norvik::InvDBConnection& connection = *Data.GetConnection();
        feedbackrows::AddPatient(connection, 1, QStringLiteral("Anna"), QStringLiteral("Huber"));
        feedbackrows::AddPatient(connection, 2, QString(), QStringLiteral("Gruber"));
        feedbackrows::AddDocument(connection, 11, 1, QStringLiteral("2026-03-10 09:15:00"),
                                  QStringLiteral("Maria Steiner"));
        feedbackrows::AddDocument(connection, 12, 2, QStringLiteral("2026-03-12 14:30:00"),
                                  QStringLiteral("Paul Wagner"));
        feedbackrows::AddDocument(connection, 13, 1, QStringLiteral("2026-01-02 08:00:00"),
                                  QStringLiteral("Paul Wagner"));
    }

    static void Send(QWidget* AWidget, QEvent::Type AType) {
        if (AType == QEvent::Enter) {
            QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
            QApplication::sendEvent(AWidget, &event);
        } else {
            QEvent event(AType);
            QApplication::sendEvent(AWidget, &event);
        }
    }
};

TEST_F(WelcomeFormTest, IsOneInstanceForTheProcess) {
    EXPECT_EQ(TWelcomeForm::GetWelcomeForm(Data), Form);
    EXPECT_EQ(TWelcomeForm::Instance(), Form);
    delete Form;
    EXPECT_EQ(TWelcomeForm::Instance(), nullptr);
    Form = TWelcomeForm::GetWelcomeForm(Data);
    EXPECT_NE(Form, nullptr);
}

TEST_F(WelcomeFormTest, ShowsItsHeadingAndTheThreeTiles) {
    EXPECT_EQ(Form->findChild<QLabel*>(QStringLiteral("ktCaptionLabel1"))->text(),
              QStringLiteral("Orvenna Rückmeldesystem für Physiotherapeuten"));
    const QStringList names{QStringLiteral("Panel3"), QStringLiteral("Panel4"), QStringLiteral("Panel5")};
    const QStringList texts{TWelcomeForm::NewFeedbackHtml, TWelcomeForm::FindFeedbackHtml,
                            TWelcomeForm::FindPatientHtml};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Form->Tile(i)->objectName(), names.at(i));
        EXPECT_EQ(Form->Tile(i)->Html(), texts.at(i));
        EXPECT_FALSE(Form->Tile(i)->TextLabel()->text().isEmpty());
    }
    EXPECT_EQ(Form->findChild<QLabel*>(QStringLiteral("lblLastFeedbacks"))->text(),
              QStringLiteral("Ihre letzten Rückmeldebögen"));
}

// Each tile begins with its hover picture, hidden, then its text and its picture; the hover
// picture lies over the picture.
TEST_F(WelcomeFormTest, EachTileHoldsItsHoverPictureFirstAndHidden) {
    Form->show();
    for (int i = 0; i < 3; ++i) {
        TWelcomeTile* tile = Form->Tile(i);
        const auto parts = tile->Parts();
        ASSERT_EQ(parts.size(), 3);
        EXPECT_EQ(tile->findChildren<QLabel*>(Qt::FindDirectChildrenOnly).size(), 3);
        EXPECT_EQ(parts.at(0), tile->HoverPicture());
        EXPECT_EQ(parts.at(1), tile->TextLabel());
        EXPECT_EQ(parts.at(2), tile->Picture());
        EXPECT_EQ(tile->HoverPicture()->geometry(), tile->Picture()->geometry());
        EXPECT_GT(tile->children().indexOf(tile->HoverPicture()), tile->children().indexOf(tile->Picture()));
        EXPECT_TRUE(tile->HoverPicture()->isHidden());
        EXPECT_FALSE(tile->Picture()->pixmap().isNull());
        EXPECT_FALSE(tile->HoverPicture()->pixmap().isNull());
    }
}

TEST_F(WelcomeFormTest, TheGridIsAReadOnlyListOfWholeRowsWithoutHeader) {
    TEmptyTextGrid* grid = Form->Grid();
    EXPECT_EQ(grid->objectName(), u"grdDOC");
    EXPECT_EQ(grid->editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_EQ(grid->selectionBehavior(), QAbstractItemView::SelectRows);
    EXPECT_TRUE(grid->horizontalHeader()->isHidden());
    EXPECT_TRUE(grid->verticalHeader()->isHidden());
    EXPECT_TRUE(grid->isColumnHidden(TLastFeedbacksModel::tvDOCDOCID));
    for (int column : {TLastFeedbacksModel::tvDOCColumn1, TLastFeedbacksModel::tvDOCColumn2,
                       TLastFeedbacksModel::tvDOCColumn3})
        EXPECT_FALSE(grid->isColumnHidden(column)) << column;
}

TEST_F(WelcomeFormTest, AnEmptyListShowsItsText) {
    Form->RefreshLastPage();
    EXPECT_EQ(Form->Grid()->EmptyText(), QStringLiteral("<Es sind noch keine Rückmeldungen vorhanden>"));
    EXPECT_TRUE(Form->Grid()->ShowsEmptyText());
    AddThreeDocuments();
    Form->RefreshLastPage();
    EXPECT_FALSE(Form->Grid()->ShowsEmptyText());
}

// The text is drawn into the empty grid: without it the grid looks different.
TEST_F(WelcomeFormTest, TheEmptyTextIsDrawnInTheGrid) {
    Form->RefreshLastPage();
    Form->show();
    const QImage withText = Form->Grid()->grab().toImage();
    Form->Grid()->SetEmptyText(QString());
    const QImage withoutText = Form->Grid()->grab().toImage();
    EXPECT_NE(withText, withoutText);
}

TEST_F(WelcomeFormTest, RefreshFillsTheGridNewestFirst) {
    AddThreeDocuments();
    Form->RefreshLastPage();
    const QAbstractItemModel* model = Form->Grid()->model();
    ASSERT_EQ(model->rowCount(), 3);
    EXPECT_EQ(model->index(0, 0).data().toString(), u"12.03.2026 14:30");
    EXPECT_EQ(model->index(0, 1).data().toString(), u"Gruber");
    EXPECT_EQ(model->index(1, 1).data().toString(), u"Anna Huber");
    EXPECT_EQ(model->index(2, 2).data().toString(), u"Paul Wagner");
}

TEST_F(WelcomeFormTest, AFailingRefreshRaisesAndTheGridKeepsItsRows) {
    AddThreeDocuments();
    Form->RefreshLastPage();
    norvik::InvDBConnection& connection = *Data.GetConnection();
    connection.PSExecuteStatement(QStringLiteral("ALTER TABLE tblPatienten RENAME TO tblPatientenAside"));
    EXPECT_ANY_THROW(Form->RefreshLastPage());
    connection.PSExecuteStatement(QStringLiteral("ALTER TABLE tblPatientenAside RENAME TO tblPatienten"));
    EXPECT_EQ(Form->Grid()->model()->rowCount(), 3);
}

struct ConfigCase {
    const char* Name;
    bool Set;
};

void PrintTo(const ConfigCase& ACase, std::ostream* AOut) {
    *AOut << ACase.Name;
}

class ConfigButtonTest : public WelcomeFormTest, public ::testing::WithParamInterface<ConfigCase> {};

// The settings button can be pressed exactly while its hook is set, also after a change back.
TEST_P(ConfigButtonTest, IsEnabledExactlyWhileTheHookIsSet) {
    EXPECT_FALSE(Form->ConfigButton()->isEnabled());
    Form->SetOnStartConfig(GetParam().Set ? Calls.Hook(QStringLiteral("config")) : TnvStartFormEvent());
    EXPECT_EQ(Form->ConfigButton()->isEnabled(), GetParam().Set);
    Form->SetOnStartConfig(GetParam().Set ? TnvStartFormEvent() : Calls.Hook(QStringLiteral("config")));
    EXPECT_EQ(Form->ConfigButton()->isEnabled(), !GetParam().Set);
}

INSTANTIATE_TEST_SUITE_P(Hooks, ConfigButtonTest,
                         ::testing::Values(ConfigCase{"Set", true}, ConfigCase{"Unset", false}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(WelcomeFormTest, TheSettingsButtonRaisesItsHook) {
    SetAllHooks();
    Form->show();
    QTest::mouseClick(Form->ConfigButton(), Qt::LeftButton);
    EXPECT_EQ(Calls.Names, QStringList{QStringLiteral("config")});
    EXPECT_EQ(Calls.Senders, QList<QObject*>{Form});
}

struct TileCase {
    const char* Name;
    int Tile;
    const char* Hook;
    // whether the tile's own face shows the hover picture, not only its parts
    bool HoverOnTile;
};

void PrintTo(const TileCase& ACase, std::ostream* AOut) {
    *AOut << ACase.Name;
}

class TileTest : public WelcomeFormTest, public ::testing::WithParamInterface<TileCase> {};

// A click on the tile or on any of its parts raises the tile's hook once, with the page as sender.
TEST_P(TileTest, AClickAnywhereOnTheTileRaisesItsHook) {
    SetAllHooks();
    Form->show();
    TWelcomeTile* tile = Form->Tile(GetParam().Tile);
    for (QWidget* target : QList<QWidget*>{tile, tile->TextLabel(), tile->Picture()}) {
        Calls = {};
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(2, 2));
        EXPECT_EQ(Calls.Names, QStringList{QString::fromUtf8(GetParam().Hook)})
            << target->objectName().toStdString();
        EXPECT_EQ(Calls.Senders, QList<QObject*>{Form});
    }
}

// A tile takes the focus with Tab, and Enter or the space bar on it is a click.
TEST_P(TileTest, AFocusedTileIsChosenWithEnterOrTheSpaceBar) {
    SetAllHooks();
    Form->show();
    TWelcomeTile* tile = Form->Tile(GetParam().Tile);
    EXPECT_TRUE(tile->focusPolicy() & Qt::TabFocus);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Calls = {};
        QTest::keyClick(tile, key);
        EXPECT_EQ(Calls.Names, QStringList{QString::fromUtf8(GetParam().Hook)}) << key;
    }
    Calls = {};
    QTest::keyClick(tile, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(tile, Qt::Key_A);
    EXPECT_TRUE(Calls.Names.isEmpty());
}

TEST_P(TileTest, ARightClickDoesNothing) {
    SetAllHooks();
    Form->show();
    QTest::mouseClick(Form->Tile(GetParam().Tile)->TextLabel(), Qt::RightButton);
    EXPECT_TRUE(Calls.Names.isEmpty());
}

TEST_P(TileTest, WithoutItsHookAClickDoesNothing) {
    Form->show();
    QTest::mouseClick(Form->Tile(GetParam().Tile), Qt::LeftButton, {}, QPoint(2, 2));
    QTest::mouseClick(Form->Tile(GetParam().Tile)->TextLabel(), Qt::LeftButton);
    EXPECT_TRUE(Calls.Names.isEmpty());
}

// The parts show the hover picture while the mouse is on them and hide it when it leaves.
TEST_P(TileTest, ThePartsShowTheHoverPictureWhileTheMouseIsOnThem) {
    TWelcomeTile* tile = Form->Tile(GetParam().Tile);
    for (QWidget* part : {tile->TextLabel(), tile->Picture()}) {
        Send(part, QEvent::Enter);
        EXPECT_FALSE(tile->HoverPicture()->isHidden()) << part->objectName().toStdString();
        Send(part, QEvent::Leave);
        EXPECT_TRUE(tile->HoverPicture()->isHidden()) << part->objectName().toStdString();
    }
    for (int other = 0; other < 3; ++other) {
        if (other != GetParam().Tile) {
            EXPECT_TRUE(Form->Tile(other)->HoverPicture()->isHidden());
        }
    }
}

TEST_P(TileTest, OnlyThePatientTileReactsToTheMouseOnItsFace) {
    TWelcomeTile* tile = Form->Tile(GetParam().Tile);
    Send(tile, QEvent::Enter);
    EXPECT_EQ(!tile->HoverPicture()->isHidden(), GetParam().HoverOnTile);
    Send(tile, QEvent::Leave);
    EXPECT_TRUE(tile->HoverPicture()->isHidden());
}

INSTANTIATE_TEST_SUITE_P(Tiles, TileTest,
                         ::testing::Values(TileCase{"NewFeedback", 0, "wizard", false},
                                           TileCase{"FindFeedback", 1, "feedbacks", false},
                                           TileCase{"FindPatient", 2, "patients", true}),
                         [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST_F(WelcomeFormTest, AClickOnARowDoesNothing) {
    SetAllHooks();
    AddThreeDocuments();
    Form->RefreshLastPage();
    Form->show();
    QTableView* grid = Form->Grid();
    const QRect row = grid->visualRect(grid->model()->index(0, 1));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_TRUE(Calls.Names.isEmpty());
    EXPECT_EQ(grid->model()->rowCount(), 3);
}

} // namespace
