#pragma once

#include <QLineEdit>
#include <functional>

class QAction;

namespace norvik {

// A text edit with a check of its value. A value that fails the check shows an error mark
// with the reason as its tooltip when the user leaves the field; the focus may leave all the
// same, so a wrong value never holds the user in the field.
class TnvValidatedEdit : public QLineEdit {
    Q_OBJECT

public:
    // sets AError and AErrorText when the value is not acceptable
    using TValidateEvent =
        std::function<void(const QString& ADisplayValue, QString& AErrorText, bool& AError)>;

    explicit TnvValidatedEdit(QWidget* AParent = nullptr);

    void SetValidateEvent(TValidateEvent AEvent);
    bool HasValidateEvent() const { return bool(FValidate); }

    // runs the check on the shown text without showing anything; without a check, true
    bool IsValid() const;
    // runs the check and shows or hides the error mark
    void Validate();
    bool ErrorShown() const;
    QString ErrorText() const { return FErrorText; }

protected:
    void focusOutEvent(QFocusEvent* AEvent) override;

private:
    TValidateEvent FValidate;
    QAction* FErrorMark;
    QString FErrorText;
};

} // namespace norvik
