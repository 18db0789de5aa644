#include "TWizardQuestionPage.h"

#include "Scaling.h"
#include "TQuestionCatalogue.h"
#include "TWizardControls.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QVBoxLayout>

using norvik::Scale;

namespace {

// room below the last question, in design pixels
constexpr int BottomMargin = 8;
constexpr int MemoHeight = 110;
// between an answer box and its name
constexpr int BoxNameGap = 8;

} // namespace

TWizardQuestionPage::TWizardQuestionPage(QWidget* AParent)
    : QWidget(AParent)
    , scrQuestions(new QScrollArea(this))
    , memContent(new QPlainTextEdit(this))
    , FQuestions(new QWidget) {
    setObjectName(QStringLiteral("crdContent"));
    scrQuestions->setObjectName(QStringLiteral("scrQuestions"));
    scrQuestions->setWidget(FQuestions);
    scrQuestions->setWidgetResizable(false);
    scrQuestions->setFrameShape(QFrame::NoFrame);
    // the answer boxes take the focus, not the frame around them
    scrQuestions->setFocusPolicy(Qt::NoFocus);
    memContent->setObjectName(QStringLiteral("memContent"));
    memContent->setFixedHeight(Scale(MemoHeight));
    memContent->setTabChangesFocus(true);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Scale(6));
    layout->addWidget(scrQuestions, 1);
    layout->addWidget(TWizardControls::Heading(QStringLiteral("Anmerkungen"), this));
    layout->addWidget(memContent);
}

int TWizardQuestionPage::BoxDesignHeight() {
    QComboBox probe;
    probe.setEditable(true);
    return norvik::MulDiv(probe.sizeHint().height(), norvik::DesignPixelsPerInch,
                          norvik::ScreenPixelsPerInch());
}

QList<QComboBox*> TWizardQuestionPage::CreateQuestions(const TQuestionCatalogue& ACatalogue) {
    RemoveQuestions();
    for (const TQuestionHeading& heading : ACatalogue.Headings())
        CreateCaption(heading.Text, heading.Left, heading.Top);
    QList<QComboBox*> boxes;
    for (const TAnswerBox& box : ACatalogue.Boxes())
        boxes.append(CreateAnswerBox(box.Hint, box.Items, box.Left, box.Top, box.Width));
    // A box's hint is gone once it shows an answer, so a subcategory's box is named beside it;
    // a question's own box needs no name, its heading stands above it.
    QString heading;
    for (const TContentInfo& info : ACatalogue.Content()) {
        if (info.IsHeader)
            heading = info.Caption;
        else if (info.Caption != heading && info.Combo >= 0 && info.Combo < boxes.size())
            CreateBoxName(info.Caption, *boxes.at(info.Combo));
    }
    FQuestions->resize(FQuestions->childrenRect().right() + Scale(BottomMargin),
                       Scale(ACatalogue.ActualTop() + BottomMargin));
    // the boxes are made after the memo; a Tab from the last answer goes on to the remark
    if (!boxes.isEmpty())
        setTabOrder(boxes.last(), memContent);
    return boxes;
}

void TWizardQuestionPage::RemoveQuestions() {
    for (QWidget* control : FQuestions->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        delete control;
}

QLabel* TWizardQuestionPage::CreateCaption(const QString& AText, int ALeft, int ATop) {
    auto* caption = new QLabel(AText, FQuestions);
    QFont font = caption->font();
    font.setPointSizeF(font.pointSizeF() * CaptionScale);
    caption->setFont(font);
    caption->adjustSize();
    caption->move(Scale(ALeft), Scale(ATop));
    caption->show();
    return caption;
}

void TWizardQuestionPage::CreateBoxName(const QString& AText, const QComboBox& ABox) {
    auto* name = new QLabel(AText, FQuestions);
    name->setForegroundRole(QPalette::PlaceholderText);
    name->adjustSize();
    name->move(ABox.geometry().right() + Scale(BoxNameGap), ABox.y() + (ABox.height() - name->height()) / 2);
    name->show();
}

QComboBox* TWizardQuestionPage::CreateAnswerBox(const QString& AHint, const QStringList& AItems, int ALeft,
                                                int ATop, int AWidth) {
    auto* box = TWizardControls::Combo(QString(), AHint, AItems, FQuestions);
    box->setToolTip(AHint);
    // the answers are often longer than the box: the list opens as wide as they need
    box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + Scale(24));
    box->setGeometry(Scale(ALeft), Scale(ATop), Scale(AWidth), box->sizeHint().height());
    box->show();
    return box;
}
