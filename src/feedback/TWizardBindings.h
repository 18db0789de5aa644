#pragma once

#include "TFeedbackWizardState.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QWidget;
class TOptionalDateEdit;

// Keeps the wizard's controls and its state in step. Each control shows the member of the
// state named like itself; what the user types or picks goes into that member at once, and
// StateChanged tells the form so. ShowState brings every control up to what the state holds
// after the state was changed in code, without echoing the change back.
class TWizardBindings : public QObject {
    Q_OBJECT

public:
    TWizardBindings(TFeedbackWizardState& AState, QObject* AParent = nullptr);

    // every control below ARoot whose object name is a text, combo box or date member
    void BindByName(QWidget* ARoot);
    void BindTextEdit(QLineEdit* AEdit, QString TFeedbackWizardState::*AMember);
    void BindMemo(QPlainTextEdit* AMemo, QString TFeedbackWizardState::*AMember);
    void BindComboBox(QComboBox* ABox, TComboBoxState TFeedbackWizardState::*AMember);
    void BindDateEdit(TOptionalDateEdit* AEdit, norvik::Variant TFeedbackWizardState::*AMember);
    // an answer box of the catalogue, by its index in the catalogue's boxes
    void BindAnswerBox(QComboBox* ABox, int AIndex);

    void ShowState();

Q_SIGNALS:
    void StateChanged();

private:
    // a control goes with its page; its way of showing the state goes with it
    struct TShow {
        QPointer<QObject> Control;
        std::function<void()> Show;
    };

    TFeedbackWizardState& FState;
    std::vector<TShow> FShows;
    bool FShowing = false;

    static void ShowCombo(QComboBox* ABox, int AItemIndex, const QString& AText);
};
