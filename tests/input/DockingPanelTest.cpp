#include "EventLoopWait.h"
#include "TDockingPanel.h"
#include "TnvFormClassRegistry.h"

#include <QApplication>
#include <QPointer>
#include <gtest/gtest.h>

using namespace norvik;

namespace inputtests {

class PageForm : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
};

class OtherPageForm : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
};

} // namespace inputtests

namespace {

using inputtests::OtherPageForm;
using inputtests::PageForm;

class DockingPanelTest : public ::testing::Test {
protected:
    QWidget window;
    TDockingPanel* panel = new TDockingPanel(&window);
    QStringList events;

    void SetUp() override {
        window.resize(600, 400);
        panel->setGeometry(10, 20, 300, 200);
        panel->OnDocked = [this](QObject* ASender) { Note(QStringLiteral("docked"), ASender); };
        panel->OnUnDocked = [this](QObject* ASender) { Note(QStringLiteral("undocked"), ASender); };
        window.show();
    }

    void Note(const QString& AWhat, QObject* ASender) {
        events << (ASender == panel ? AWhat : AWhat + QStringLiteral(" from elsewhere"));
    }
};

TEST_F(DockingPanelTest, DockedFormFillsThePanelWithoutBorder) {
    auto* form = new PageForm();
    form->setWindowTitle(QStringLiteral("Seite"));
    panel->DockForm(form);
    EXPECT_EQ(panel->GetDockedForm(), form);
    EXPECT_EQ(form->parentWidget(), panel);
    EXPECT_FALSE(form->isWindow());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->geometry(), QRect(0, 0, 300, 200));
    EXPECT_EQ(events, QStringList{QStringLiteral("docked")});
}

TEST_F(DockingPanelTest, FormCanBeDockedHidden) {
    auto* form = new PageForm();
    panel->DockForm(form, true, false);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(DockingPanelTest, DockingTheDockedFormAgainChangesNothing) {
    auto* form = new PageForm();
    panel->DockForm(form);
    panel->DockForm(form);
    EXPECT_EQ(events, QStringList{QStringLiteral("docked")});
}

TEST_F(DockingPanelTest, ReleasedOldFormIsHiddenAndLeavesThePanel) {
    auto* first = new PageForm();
    auto* second = new PageForm();
    panel->DockForm(first);
    panel->DockForm(second, true);
    EXPECT_FALSE(first->isVisible());
    EXPECT_EQ(first->parentWidget(), nullptr);
    EXPECT_EQ(panel->GetDockedForm(), second);
    EXPECT_EQ(events,
              (QStringList{QStringLiteral("docked"), QStringLiteral("undocked"), QStringLiteral("docked")}));
    delete first;
    EXPECT_EQ(panel->GetDockedForm(), second);
    EXPECT_EQ(events.size(), 3);
}

TEST_F(DockingPanelTest, OldFormStaysWhenNotReleased) {
    auto* first = new PageForm();
    panel->DockForm(first);
    panel->DockForm(new PageForm(), false);
    EXPECT_EQ(first->parentWidget(), panel);
    EXPECT_TRUE(first->isVisible());
}

TEST_F(DockingPanelTest, FormFollowsThePanelsSize) {
    auto* form = new PageForm();
    panel->DockForm(form);
    panel->resize(420, 310);
    EXPECT_EQ(form->size(), QSize(420, 310));
}

TEST_F(DockingPanelTest, FormTakesTheFocusThePanelHad) {
    panel->setFocusPolicy(Qt::StrongFocus);
    window.activateWindow();
    ASSERT_TRUE(inputtests::WaitUntil([&] { return QApplication::activeWindow() == &window; }));
    panel->setFocus();
    ASSERT_TRUE(panel->hasFocus());
    auto* form = new PageForm();
    form->setFocusPolicy(Qt::StrongFocus);
    panel->DockForm(form);
    EXPECT_TRUE(form->hasFocus());
}

TEST_F(DockingPanelTest, ReleaseDockFormFreesTheForm) {
    QPointer<PageForm> form = new PageForm();
    panel->DockForm(form);
    panel->ReleaseDockForm();
    EXPECT_EQ(panel->GetDockedForm(), nullptr);
    EXPECT_EQ(events, (QStringList{QStringLiteral("docked"), QStringLiteral("undocked")}));
    ASSERT_TRUE(inputtests::WaitUntil([&] { return form.isNull(); }));
    EXPECT_EQ(events.size(), 2);
    panel->ReleaseDockForm();
}

TEST_F(DockingPanelTest, FormDestroyedElsewhereIsForgotten) {
    auto* form = new PageForm();
    panel->DockForm(form);
    delete form;
    EXPECT_EQ(panel->GetDockedForm(), nullptr);
    EXPECT_EQ(events, (QStringList{QStringLiteral("docked"), QStringLiteral("undocked")}));
    panel->DockForm(new PageForm());
    EXPECT_NE(panel->GetDockedForm(), nullptr);
}

TEST_F(DockingPanelTest, PanelGoneFormGoesQuietly) {
    QPointer<PageForm> form = new PageForm();
    panel->DockForm(form);
    delete panel;
    EXPECT_TRUE(form.isNull());
}

TEST_F(DockingPanelTest, DockByClassNameMakesANewFormOnlyForAnotherClass) {
    RegisterFormClass<PageForm>();
    RegisterFormClass<OtherPageForm>();
    EXPECT_FALSE(panel->SetDockFormByClass(QString()));
    EXPECT_FALSE(panel->SetDockFormByClass(QStringLiteral("TNirgendsForm")));
    EXPECT_EQ(panel->GetDockedForm(), nullptr);
    EXPECT_TRUE(panel->SetDockFormByClass(QStringLiteral("PageForm")));
    QWidget* first = panel->GetDockedForm();
    ASSERT_NE(qobject_cast<PageForm*>(first), nullptr);
    EXPECT_FALSE(panel->SetDockFormByClass(QStringLiteral("PageForm")));
    EXPECT_EQ(panel->GetDockedForm(), first);
    EXPECT_TRUE(panel->SetDockFormByClass(QStringLiteral("OtherPageForm")));
    EXPECT_NE(qobject_cast<OtherPageForm*>(panel->GetDockedForm()), nullptr);
    delete first;
}

} // namespace

#include "DockingPanelTest.moc"
