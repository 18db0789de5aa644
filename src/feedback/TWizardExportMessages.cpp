#include "TWizardExportMessages.h"

#include "TnvDialogs.h"

using norvik::TnvDialogs;

void TWizardExportMessages::ShowError(const QString& AText) {
    TnvDialogs::ShowError(FParent, AText);
}

void TWizardExportMessages::ShowErrorWithDetails(const QString& AText, const QString& ADetails) {
    TnvDialogs::ShowErrorWithDetails(FParent, AText, ADetails);
}

void TWizardExportMessages::ShowInformation(const QString& AText) {
    TnvDialogs::ShowInformation(FParent, AText);
}
