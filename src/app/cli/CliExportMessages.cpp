#include "CliExportMessages.h"

CliExportMessages::CliExportMessages(QTextStream& AInformation, QTextStream& AErrors)
    : FInformation(AInformation)
    , FErrors(AErrors) {}

void CliExportMessages::ShowError(const QString& AText) {
    FErrors << AText << '\n';
}

void CliExportMessages::ShowErrorWithDetails(const QString& AText, const QString& ADetails) {
    FErrors << AText << '\n'
            << QString(ADetails).replace(QStringLiteral("\r\n"), QStringLiteral("\n")) << '\n';
}

void CliExportMessages::ShowInformation(const QString& AText) {
    FInformation << AText << '\n';
}
