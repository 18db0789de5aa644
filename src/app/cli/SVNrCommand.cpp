#include "SVNrCommand.h"

#include "TFeedbackFieldChecks.h"
#include "TSVNr.h"

namespace {

QString truth(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

int SVNrCommand::run(QStringList arguments, QTextStream& out, QTextStream&) const {
    const QString text = onlyArgument(arguments);
    const bool wizard =
        TFeedbackFieldChecks::IsFieldValid(&TFeedbackFieldChecks::edtPATSVNrPropertiesValidate, text);
    out << "format=" << truth(TSVNr::IsSVNrFormatValid(text, false))
        << " formatZero=" << truth(TSVNr::IsSVNrFormatValid(text, true)) << " wizard=" << truth(wizard)
        << '\n';
    return CliSuccess;
}
