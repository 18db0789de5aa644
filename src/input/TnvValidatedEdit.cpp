#include "TnvValidatedEdit.h"

#include <QAction>
#include <QStyle>

namespace norvik {

TnvValidatedEdit::TnvValidatedEdit(QWidget* AParent)
    : QLineEdit(AParent)
    , FErrorMark(new QAction(this)) {
    FErrorMark->setIcon(style()->standardIcon(QStyle::SP_MessageBoxCritical));
    addAction(FErrorMark, QLineEdit::TrailingPosition);
    // hidden only once added: the edit hides the mark's button when the action changes, and
    // an action hidden beforehand would get a button that shows with the edit
    FErrorMark->setVisible(false);
    connect(this, &QLineEdit::editingFinished, this, &TnvValidatedEdit::Validate);
}

void TnvValidatedEdit::SetValidateEvent(TValidateEvent AEvent) {
    FValidate = std::move(AEvent);
}

bool TnvValidatedEdit::IsValid() const {
    if (!FValidate)
        return true;
    QString errorText;
    bool error = false;
    FValidate(text(), errorText, error);
    return !error;
}

void TnvValidatedEdit::Validate() {
    bool error = false;
    FErrorText.clear();
    if (FValidate)
        FValidate(text(), FErrorText, error);
    if (!error)
        FErrorText.clear();
    FErrorMark->setVisible(error);
    FErrorMark->setToolTip(FErrorText);
    setToolTip(FErrorText);
}

bool TnvValidatedEdit::ErrorShown() const {
    return FErrorMark->isVisible();
}

void TnvValidatedEdit::focusOutEvent(QFocusEvent* AEvent) {
    QLineEdit::focusOutEvent(AEvent);
    Validate();
}

} // namespace norvik
