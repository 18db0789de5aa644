#pragma once

#include <QString>
#include <QStringList>

// What an editable combo box of the wizard holds: its list, the selected item and the text
// it shows. Selecting an item shows that item; typing a text selects the item of that text,
// if there is one.
class TComboBoxState {
public:
    TComboBoxState() = default;
    explicit TComboBoxState(const QStringList& AItems)
        : FItems(AItems) {}

    const QStringList& Items() const { return FItems; }
    int ItemIndex() const { return FItemIndex; }
    const QString& Text() const { return FText; }

    // an index outside the list selects nothing and empties the text
    void SetItemIndex(int AIndex);
    void SetText(const QString& AText);

private:
    QStringList FItems;
    int FItemIndex = -1;
    QString FText;
};
