#pragma once

#include <QString>
#include <QStringList>

// An answer box of the catalogue page: where it stands (in design pixels), what it offers,
// and what it shows. The wizard binds an editable combo box to each and keeps ItemIndex and
// Text in step with it; the answer is the text at the moment the letter is built.
struct TAnswerBox {
    // shown when the box is empty, and as its tooltip
    QString Hint;
    QStringList Items;
    int Left = 0;
    int Top = 0;
    int Width = 0;

    int ItemIndex = -1;
    QString Text;
};
