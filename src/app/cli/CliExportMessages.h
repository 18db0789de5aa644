#pragma once

#include "IDaMeExportMessages.h"

#include <QTextStream>

// The export's messages as lines: errors with their details on standard error, the
// information where the caller wants it.
class CliExportMessages : public IDaMeExportMessages {
public:
    CliExportMessages(QTextStream& AInformation, QTextStream& AErrors);

    void ShowError(const QString& AText) override;
    void ShowErrorWithDetails(const QString& AText, const QString& ADetails) override;
    void ShowInformation(const QString& AText) override;

private:
    QTextStream& FInformation;
    QTextStream& FErrors;
};
