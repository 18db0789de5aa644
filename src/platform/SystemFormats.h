#pragma once

#include <QChar>
#include <QLocale>
#include <QString>

namespace platform {

// The regional formats of an Austrian workstation. The program uses them whatever the
// machine's own locale is, so that a letter looks the same on every computer.
struct SystemFormats {
    QChar decimalSeparator = QLatin1Char(',');
    QChar thousandSeparator = QLatin1Char('.');
    QChar dateSeparator = QLatin1Char('.');
    QChar timeSeparator = QLatin1Char(':');
    QString shortDateFormat = QStringLiteral("dd.MM.yyyy");
    QString longDateFormat = QStringLiteral("dddd, d. MMMM yyyy");
    QString shortTimeFormat = QStringLiteral("HH:mm");
    QString longTimeFormat = QStringLiteral("HH:mm:ss");
    // two-digit years fall into the hundred years that end this many years ahead
    int twoDigitYearCenturyWindow = 50;
    int currencyDecimals = 2;

    // German (Austria): month names such as "Jänner"
    QLocale locale() const { return QLocale(QLocale::German, QLocale::Austria); }

    static const SystemFormats& current();
};

} // namespace platform
