#include "TComboBoxState.h"

void TComboBoxState::SetItemIndex(int AIndex) {
    const bool inList = AIndex >= 0 && AIndex < FItems.size();
    FItemIndex = inList ? AIndex : -1;
    FText = inList ? FItems.at(AIndex) : QString();
}

void TComboBoxState::SetText(const QString& AText) {
    FText = AText;
    FItemIndex = int(FItems.indexOf(AText));
}
