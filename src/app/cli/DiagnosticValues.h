#pragma once

#include "TDateTimeUtils.h"
#include "TnvNamedValues.h"

#include <QString>
#include <memory>

// The input of the outbox message read from a JSON object: each key a named value as text,
// PATGeburtstag a date "yyyy-mm-dd" (absent or empty meaning none).
class DiagnosticValues {
public:
    // raises ECliUsage for a file that can't be read
    static std::shared_ptr<norvik::TnvNamedValues> Read(const QString& AFileName);
    // the report date "yyyy-mm-dd", today when empty; raises ECliUsage for any other text
    static norvik::TDateTime ReportDate(const QString& AText);

private:
    static norvik::TDateTime DateOf(const QString& AText, const QString& AWhat);
};
