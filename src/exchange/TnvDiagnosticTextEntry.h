#pragma once

#include "TDateTimeUtils.h"

#include <QString>
#include <QtGlobal>

namespace norvik {

// One report of a message run: one UNH ... UNT message of the interchange.
struct TnvDiagnosticTextEntry {
    qint64 APATID = 0;
    // the message reference
    qint64 ANumber = 0;
    TDateTime ADate = 0;
    QString AText;
    QString AReason;
};

} // namespace norvik
