#include "TextProperties.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <gtest/gtest.h>

using namespace norvik;

namespace inputtests {

// A component with properties that hold objects, as forms have them.
class LinkHolder : public QObject {
    Q_OBJECT
    Q_PROPERTY(QLabel* Target READ Target WRITE SetTarget)
    Q_PROPERTY(QObject* Any READ Any WRITE SetAny)

public:
    using QObject::QObject;
    QLabel* Target() const { return FTarget; }
    void SetTarget(QLabel* AValue) { FTarget = AValue; }
    QObject* Any() const { return FAny; }
    void SetAny(QObject* AValue) { FAny = AValue; }

private:
    QLabel* FTarget = nullptr;
    QObject* FAny = nullptr;
};

} // namespace inputtests

namespace {

using inputtests::LinkHolder;

class TextPropertiesTest : public ::testing::Test {
protected:
    QWidget form;
    QWidget* pnlTop = Named<QWidget>(new QWidget(&form), "pnlTop");
    QWidget* pnlBottom = Named<QWidget>(new QWidget(&form), "pnlBottom");
    QPushButton* cmdOk = Named<QPushButton>(new QPushButton(pnlTop), "cmdOk");
    QLabel* lblTitle = Named<QLabel>(new QLabel(&form), "lblTitle");
    QLabel* lblOther = Named<QLabel>(new QLabel(&form), "lblOther");
    QLineEdit* edtName = Named<QLineEdit>(new QLineEdit(&form), "edtName");
    QSpinBox* spnCount = Named<QSpinBox>(new QSpinBox(&form), "spnCount");
    LinkHolder* holder = Named<LinkHolder>(new LinkHolder(&form), "holder");

    template <class T> static T* Named(T* AObject, const char* AName) {
        AObject->setObjectName(QLatin1String(AName));
        return AObject;
    }
};

TEST_F(TextPropertiesTest, PathReachesNestedComponents) {
    EXPECT_EQ(
        SetTextProperties(&form, QStringLiteral("pnlTop.cmdOk.text=Weiter\n  lblTitle.text = Willkommen  ")),
        0);
    EXPECT_EQ(cmdOk->text(), QStringLiteral("Weiter"));
    EXPECT_EQ(lblTitle->text(), QStringLiteral("Willkommen"));
}

TEST_F(TextPropertiesTest, ComponentIsFoundAmongAllTheFormOwns) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("cmdOk.text=Los")));
    EXPECT_EQ(cmdOk->text(), QStringLiteral("Los"));
}

TEST_F(TextPropertiesTest, PropertyNameIgnoresLetterCase) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("lblTitle.Text=Hallo")));
    EXPECT_EQ(lblTitle->text(), QStringLiteral("Hallo"));
}

TEST_F(TextPropertiesTest, FormsOwnPropertyNeedsNoComponent) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("windowTitle=Einstellungen")));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Einstellungen"));
}

TEST_F(TextPropertiesTest, EnumerationAndSetTakeValuesByName) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("edtName.echoMode=Password")));
    EXPECT_EQ(edtName->echoMode(), QLineEdit::Password);
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("lblTitle.alignment=[AlignRight, AlignBottom]")));
    EXPECT_EQ(lblTitle->alignment(), Qt::AlignRight | Qt::AlignBottom);
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("lblTitle.alignment=AlignLeft|AlignTop")));
    EXPECT_EQ(lblTitle->alignment(), Qt::AlignLeft | Qt::AlignTop);
}

TEST_F(TextPropertiesTest, DollarMeansHexadecimalForIntegers) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("spnCount.maximum=$FF")));
    EXPECT_EQ(spnCount->maximum(), 255);
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("spnCount.maximum=300")));
    EXPECT_EQ(spnCount->maximum(), 300);
}

TEST_F(TextPropertiesTest, ParentMovesTheControl) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("cmdOk.Parent=pnlBottom")));
    EXPECT_EQ(cmdOk->parentWidget(), pnlBottom);
}

TEST_F(TextPropertiesTest, ObjectPropertyTakesAComponentOrNil) {
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("holder.Target=lblOther")));
    EXPECT_EQ(holder->Target(), lblOther);
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("holder.Any=edtName")));
    EXPECT_EQ(holder->Any(), edtName);
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("holder.Target=nil")));
    EXPECT_EQ(holder->Target(), nullptr);
}

TEST_F(TextPropertiesTest, PathStepsThroughObjectProperties) {
    holder->SetTarget(lblOther);
    EXPECT_TRUE(SetTextProperty(&form, QStringLiteral("holder.Target.text=Durch")));
    EXPECT_EQ(lblOther->text(), QStringLiteral("Durch"));
}

struct BadLineCase {
    const char* Name;
    const char* Line;
};

class BadTextPropertyTest : public TextPropertiesTest, public ::testing::WithParamInterface<BadLineCase> {};

TEST_P(BadTextPropertyTest, LineIsPassedOverAndTheNextOneApplied) {
    const QString text = QString::fromUtf8(GetParam().Line) + QStringLiteral("\nlblTitle.text=danach");
    EXPECT_EQ(SetTextProperties(&form, text), 1);
    EXPECT_EQ(lblTitle->text(), QStringLiteral("danach"));
    EXPECT_EQ(cmdOk->parentWidget(), pnlTop);
    EXPECT_EQ(holder->Target(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Cases, BadTextPropertyTest,
                         ::testing::Values(BadLineCase{"UnknownComponent", "lblNirgends.text=x"},
                                           BadLineCase{"UnknownProperty", "lblTitle.farbe=rot"},
                                           BadLineCase{"NoEquals", "lblTitle.text"},
                                           BadLineCase{"NoPath", "=x"},
                                           BadLineCase{"NotANumber", "spnCount.maximum=viele"},
                                           BadLineCase{"BadHex", "spnCount.maximum=$XYZ"},
                                           BadLineCase{"UnknownEnumValue", "edtName.echoMode=Geheim"},
                                           BadLineCase{"UnknownParent", "cmdOk.Parent=pnlNirgends"},
                                           BadLineCase{"ParentIntoItself", "pnlTop.Parent=cmdOk"},
                                           BadLineCase{"WrongObjectType", "holder.Target=edtName"},
                                           BadLineCase{"UnknownObject", "holder.Target=lblNirgends"},
                                           BadLineCase{"ReadOnlyProperty", "edtName.hasAcceptableInput=true"},
                                           BadLineCase{"EmptyStep", "pnlTop..text=x"}),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST_F(TextPropertiesTest, EmptyLinesAreNoFailures) {
    EXPECT_EQ(SetTextProperties(&form, QStringLiteral("\n\r\n   \n")), 0);
}

TEST_F(TextPropertiesTest, NoFormNoChange) {
    EXPECT_FALSE(SetTextProperty(nullptr, QStringLiteral("text=x")));
}

} // namespace

#include "TextPropertiesTest.moc"
