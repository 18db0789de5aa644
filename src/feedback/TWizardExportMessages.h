#pragma once

#include "IDaMeExportMessages.h"

class QWidget;

// The export's messages as the message boxes of the wizard.
class TWizardExportMessages : public IDaMeExportMessages {
public:
    explicit TWizardExportMessages(QWidget* AParent)
        : FParent(AParent) {}

    void ShowError(const QString& AText) override;
    void ShowErrorWithDetails(const QString& AText, const QString& ADetails) override;
    void ShowInformation(const QString& AText) override;

private:
    QWidget* FParent;
};
