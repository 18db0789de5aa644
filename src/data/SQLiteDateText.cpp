#include "SQLiteDateText.h"

#include "TDateTimeUtils.h"

#include <QDateTime>

namespace norvik {

QString SQLiteDateText::FromDateTime(TDateTime value) {
    const QDate date = TDateTimeUtils::toDate(value);
    const QTime time = TDateTimeUtils::toTime(value);
    return date.toString(QStringLiteral("yyyy-MM-dd")) + QLatin1Char(' ') +
           time.toString(QStringLiteral("HH:mm:ss"));
}

bool SQLiteDateText::TryParse(const QString& text, TDateTime& result) {
    static const QString formats[] = {
        QStringLiteral("yyyy-MM-dd HH:mm:ss"), QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"),
        QStringLiteral("yyyy-MM-dd HH:mm"), QStringLiteral("yyyy-MM-ddTHH:mm:ss")};
    const QString trimmed = text.trimmed();
    for (const QString& format : formats) {
        const QDateTime dateTime = QDateTime::fromString(trimmed, format);
        if (dateTime.isValid()) {
            result = TDateTimeUtils::fromQDateTime(dateTime);
            return true;
        }
    }
    for (const QString& format : {QStringLiteral("yyyy-MM-dd"), QStringLiteral("dd.MM.yyyy")}) {
        const QDate date = QDate::fromString(trimmed, format);
        if (date.isValid()) {
            result = TDateTimeUtils::fromDate(date);
            return true;
        }
    }
    return false;
}

} // namespace norvik
