#include "DiagnosticValues.h"

#include "CliCommand.h"
#include "Clock.h"
#include "VariantJSON.h"

#include <QDate>
#include <QFile>

using namespace norvik;

namespace {

const QString BirthDateName = QStringLiteral("PATGeburtstag");

} // namespace

std::shared_ptr<TnvNamedValues> DiagnosticValues::Read(const QString& AFileName) {
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly))
        throw ECliUsage(QStringLiteral("cannot read %1").arg(AFileName));
    const Variant document = JSONVariant(QString::fromUtf8(file.readAll()));
    const TJSONVariantData* object = JSONVariantDataSafe(document, jvObject);

    auto values = TnvNamedValues::Create();
    for (int index = 0; index < object->VCount; ++index) {
        const Variant& value = object->ValueAt(index);
        values->SetValueAsString(object->NameAt(index), value.isNull() ? QString() : value.toString());
    }
    values->SetValueAsDateTime(BirthDateName, DateOf(values->GetAsString(BirthDateName), BirthDateName));
    return values;
}

TDateTime DiagnosticValues::ReportDate(const QString& AText) {
    return AText.isEmpty() ? Clock::todayDate() : DateOf(AText, QStringLiteral("--date"));
}

TDateTime DiagnosticValues::DateOf(const QString& AText, const QString& AWhat) {
    if (AText.isEmpty())
        return 0;
    const QDate date = QDate::fromString(AText, QStringLiteral("yyyy-MM-dd"));
    if (!date.isValid())
        throw ECliUsage(QStringLiteral("%1: \"%2\" is no date \"yyyy-mm-dd\"").arg(AWhat, AText));
    return TDateTimeUtils::fromDate(date);
}
