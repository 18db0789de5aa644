#include "TWizardBindings.h"

#include "TOptionalDateEdit.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

// the item the box shows, or -1 when its text was typed rather than picked
int PickedIndex(const QComboBox* ABox) {
    const int index = ABox->currentIndex();
    return index >= 0 && ABox->itemText(index) == ABox->currentText() ? index : -1;
}

} // namespace

TWizardBindings::TWizardBindings(TFeedbackWizardState& AState, QObject* AParent)
    : QObject(AParent)
    , FState(AState) {}

void TWizardBindings::BindByName(QWidget* ARoot) {
    for (const TFeedbackWizardState::TTextEdit& edit : TFeedbackWizardState::TextEdits()) {
        if (auto* line = ARoot->findChild<QLineEdit*>(edit.Name))
            BindTextEdit(line, edit.Member);
        else if (auto* memo = ARoot->findChild<QPlainTextEdit*>(edit.Name))
            BindMemo(memo, edit.Member);
    }
    for (const TFeedbackWizardState::TComboBox& box : TFeedbackWizardState::ComboBoxes()) {
        if (auto* combo = ARoot->findChild<QComboBox*>(box.Name))
            BindComboBox(combo, box.Member);
    }
    for (const TFeedbackWizardState::TDateEdit& edit : TFeedbackWizardState::DateEdits()) {
        if (auto* date = ARoot->findChild<TOptionalDateEdit*>(edit.Name))
            BindDateEdit(date, edit.Member);
    }
}

void TWizardBindings::BindTextEdit(QLineEdit* AEdit, QString TFeedbackWizardState::*AMember) {
    connect(AEdit, &QLineEdit::textChanged, this, [this, AMember](const QString& AText) {
        if (FShowing)
            return;
        FState.*AMember = AText;
        Q_EMIT StateChanged();
    });
    FShows.push_back({AEdit, [this, AEdit, AMember] {
                          if (AEdit->text() != FState.*AMember)
                              AEdit->setText(FState.*AMember);
                      }});
}

void TWizardBindings::BindMemo(QPlainTextEdit* AMemo, QString TFeedbackWizardState::*AMember) {
    connect(AMemo, &QPlainTextEdit::textChanged, this, [this, AMemo, AMember] {
        if (FShowing)
            return;
        FState.*AMember = AMemo->toPlainText();
        Q_EMIT StateChanged();
    });
    FShows.push_back({AMemo, [this, AMemo, AMember] {
                          if (AMemo->toPlainText() != FState.*AMember)
                              AMemo->setPlainText(FState.*AMember);
                      }});
}

void TWizardBindings::BindComboBox(QComboBox* ABox, TComboBoxState TFeedbackWizardState::*AMember) {
    const auto read = [this, ABox, AMember] {
        if (FShowing)
            return;
        TComboBoxState& state = FState.*AMember;
        const int picked = PickedIndex(ABox);
        if (picked >= 0)
            state.SetItemIndex(picked);
        else
            state.SetText(ABox->currentText());
        Q_EMIT StateChanged();
    };
    connect(ABox, &QComboBox::currentIndexChanged, this, read);
    connect(ABox, &QComboBox::editTextChanged, this, read);
    FShows.push_back({ABox, [this, ABox, AMember] {
                          const TComboBoxState& state = FState.*AMember;
                          ShowCombo(ABox, state.ItemIndex(), state.Text());
                      }});
}

void TWizardBindings::BindDateEdit(TOptionalDateEdit* AEdit, norvik::Variant TFeedbackWizardState::*AMember) {
    connect(AEdit, &TOptionalDateEdit::ValueChanged, this, [this, AEdit, AMember] {
        if (FShowing)
            return;
        FState.*AMember = AEdit->Value();
        Q_EMIT StateChanged();
    });
    FShows.push_back({AEdit, [this, AEdit, AMember] {
                          if (AEdit->Value() != FState.*AMember)
                              AEdit->SetValue(FState.*AMember);
                      }});
}

void TWizardBindings::BindAnswerBox(QComboBox* ABox, int AIndex) {
    const auto read = [this, ABox, AIndex] {
        if (FShowing || AIndex >= FState.FCatalogue.Boxes().size())
            return;
        TAnswerBox& box = FState.FCatalogue.Boxes()[AIndex];
        box.Text = ABox->currentText();
        const int picked = PickedIndex(ABox);
        box.ItemIndex = picked >= 0 ? picked : int(box.Items.indexOf(box.Text));
        Q_EMIT StateChanged();
    };
    connect(ABox, &QComboBox::currentIndexChanged, this, read);
    connect(ABox, &QComboBox::editTextChanged, this, read);
    FShows.push_back({ABox, [this, ABox, AIndex] {
                          if (AIndex >= FState.FCatalogue.Boxes().size())
                              return;
                          const TAnswerBox& box = FState.FCatalogue.Boxes().at(AIndex);
                          ShowCombo(ABox, box.ItemIndex, box.Text);
                      }});
}

void TWizardBindings::ShowState() {
    std::erase_if(FShows, [](const TShow& AShow) { return AShow.Control.isNull(); });
    FShowing = true;
    for (const TShow& show : FShows)
        show.Show();
    FShowing = false;
    Q_EMIT StateChanged();
}

void TWizardBindings::ShowCombo(QComboBox* ABox, int AItemIndex, const QString& AText) {
    const int index = AItemIndex < ABox->count() ? AItemIndex : -1;
    if (ABox->currentIndex() != index)
        ABox->setCurrentIndex(index);
    if (ABox->currentText() != AText)
        ABox->setEditText(AText);
}
