#pragma once

#include <QString>
#include <QStringList>

class QComboBox;
class QLabel;
class QLineEdit;
class QWidget;
class TOptionalDateEdit;

namespace norvik {
class TnvValidatedEdit;
}

// The kinds of controls the wizard's pages are made of, each named and hinted the same way:
// the object name is the control's name, the text hint stands in the empty control.
class TWizardControls {
public:
    // a group heading, set larger and bold
    static QLabel* Heading(const QString& AText, QWidget* AParent);
    // a framed note: the title and the data it asks for, one per line
    static QLabel* Note(const QString& ATitle, const QStringList& ALines, QWidget* AParent);
    static QLineEdit* Edit(const QString& AName, const QString& AHint, QWidget* AParent);
    // an edit with the check of its name; a wrong value shows the error mark, never holds the focus
    static norvik::TnvValidatedEdit* CheckedEdit(const QString& AName, const QString& AHint,
                                                 QWidget* AParent);
    // an editable combo box with its list, nothing selected
    static QComboBox* Combo(const QString& AName, const QString& AHint, const QStringList& AItems,
                            QWidget* AParent);
    static TOptionalDateEdit* DateEdit(const QString& AName, const QString& AHint, QWidget* AParent);
};
