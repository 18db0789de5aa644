#pragma once

#include <QString>

// Where the export says how it went; the wizard shows these as message boxes.
class IDaMeExportMessages {
public:
    virtual ~IDaMeExportMessages() = default;
    virtual void ShowError(const QString& AText) = 0;
    virtual void ShowErrorWithDetails(const QString& AText, const QString& ADetails) = 0;
    virtual void ShowInformation(const QString& AText) = 0;
};
