#include "TWizardControls.h"

#include "Scaling.h"
#include "TFeedbackFieldChecks.h"
#include "TOptionalDateEdit.h"
#include "TnvValidatedEdit.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr double HeadingScale = 1.15;
constexpr int HeadingSpace = 8;

template <class TControl> TControl* Named(TControl* AControl, const QString& AName) {
    AControl->setObjectName(AName);
    return AControl;
}

} // namespace

QLabel* TWizardControls::Heading(const QString& AText, QWidget* AParent) {
    auto* label = new QLabel(AText, AParent);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * HeadingScale);
    label->setFont(font);
    // a group stands apart from the one above it
    label->setContentsMargins(0, norvik::Scale(HeadingSpace), 0, 0);
    return label;
}

QLabel* TWizardControls::Note(const QString& ATitle, const QStringList& ALines, QWidget* AParent) {
    QString text = u"<b>" + ATitle.toHtmlEscaped() + u"</b><ul style=\"margin-left:-20px\">";
    for (const QString& line : ALines)
        text += u"<li>" + line.toHtmlEscaped() + u"</li>";
    text += u"</ul>";
    auto* label = new QLabel(text, AParent);
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMargin(8);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::AlternateBase);
    return label;
}

QLineEdit* TWizardControls::Edit(const QString& AName, const QString& AHint, QWidget* AParent) {
    auto* edit = Named(new QLineEdit(AParent), AName);
    edit->setPlaceholderText(AHint);
    return edit;
}

norvik::TnvValidatedEdit* TWizardControls::CheckedEdit(const QString& AName, const QString& AHint,
                                                       QWidget* AParent) {
    auto* edit = Named(new norvik::TnvValidatedEdit(AParent), AName);
    edit->setPlaceholderText(AHint);
    if (const auto check = TFeedbackFieldChecks::ValidateEventOf(AName))
        edit->SetValidateEvent(check);
    return edit;
}

QComboBox* TWizardControls::Combo(const QString& AName, const QString& AHint, const QStringList& AItems,
                                  QWidget* AParent) {
    auto* box = Named(new QComboBox(AParent), AName);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->addItems(AItems);
    box->setCurrentIndex(-1);
    box->lineEdit()->setPlaceholderText(AHint);
    return box;
}

TOptionalDateEdit* TWizardControls::DateEdit(const QString& AName, const QString& AHint, QWidget* AParent) {
    auto* edit = Named(new TOptionalDateEdit(AParent), AName);
    edit->setPlaceholderText(AHint);
    if (const auto check = TFeedbackFieldChecks::ValidateEventOf(AName))
        edit->SetValueCheck(check);
    return edit;
}
