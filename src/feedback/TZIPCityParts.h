#pragma once

#include <QString>

// A location as typed into one field, "1010 Wien" or "D-80331 München", in the three parts
// the address tables keep.
struct TZIPCityParts {
    QString Country;
    QString PostalCode;
    QString City;

    // Text before the first "-" of three characters or more holds no country: it is postal
    // code and city of Austria ("A"), and whatever stood behind the "-" is dropped, so
    // "5020 Salz-burg" keeps the city "Salz". A shorter text before the "-" is the country.
    // The postal code runs up to the first blank, the city is the rest.
    static TZIPCityParts Split(const QString& AZIPCity);
};
