#pragma once

#include <QString>

namespace norvik {

// What the message tells of the sending therapist.
struct TnvDiagnosticTPTOptions {
    QString ADaMeCode;
    QString ASpecialism;
};

} // namespace norvik
