#pragma once

#include "TDateTimeUtils.h"

#include <QString>

// The Austrian social insurance number: four digits of serial, the last of them a check
// digit, and six of the date of birth as ddmmyy.
class TSVNr {
public:
    // An empty or four-character text passes; a ten-character text passes when its birth date
    // part looks like a date (day 1 to 31, month 1 to 15 for numbers given with a substitute
    // month, no calendar check) and its check digit fits. The serial "0000" has no check digit
    // and passes only with AAllowZeroSerial.
    static bool IsSVNrFormatValid(const QString& AText, bool AAllowZeroSerial);
    // The date of birth in a ten-character number, the two-digit year falling into the last
    // hundred years up to this year; 0 for any other text and for a date that doesn't exist.
    static norvik::TDateTime BirthDateOf(const QString& AText);

private:
    static bool IsCheckDigitValid(const QString& AText);
    // the weighted sum of the serial's first three digits by the first three digits of AWeights
    static int WeightedSerial(const QString& AText, int AWeights);
    // the two characters at APosition as a decimal number, or ADefault for anything else
    static int NumberAt(const QString& AText, int APosition, int ADefault);
    static int DigitAt(const QString& AText, int APosition);
};
