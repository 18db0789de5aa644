#pragma once

#include <QString>
#include <QtGlobal>

namespace norvik {

// Whole numbers as the variant layer reads text: blanks in front, a sign, decimal digits or
// hexadecimal digits behind "$" or "0x", nothing behind. Decimal text must fit the signed
// range; hexadecimal text may fill every bit of the width and is then read as signed.
bool TryWholeNumberText(const QString& text, int bitWidth, qint64& result);

} // namespace norvik
