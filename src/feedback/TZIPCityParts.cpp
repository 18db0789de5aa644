#include "TZIPCityParts.h"

#include "StringUtils.h"

TZIPCityParts TZIPCityParts::Split(const QString& AZIPCity) {
    constexpr int ShortestPostalCodeAndCity = 3;
    TZIPCityParts parts;
    QString behindDash = AZIPCity;
    QString beforeDash;
    norvik::FetchToken(behindDash, QStringLiteral("-"), false, beforeDash);
    if (beforeDash.size() >= ShortestPostalCodeAndCity) {
        parts.Country = QStringLiteral("A");
        parts.City = beforeDash;
    } else {
        parts.Country = beforeDash;
        parts.City = behindDash;
    }
    norvik::FetchToken(parts.City, QStringLiteral(" "), false, parts.PostalCode);
    return parts;
}
