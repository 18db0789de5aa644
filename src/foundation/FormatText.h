#pragma once

#include "Variant.h"

#include <QString>
#include <initializer_list>

namespace norvik {

// Expands a format in the framework's printf-like notation:
//   "%" [index ":"] ["-"] [width] ["." precision] type
// with the types d (integer), u (unsigned), x (hexadecimal), e (scientific), f (fixed),
// g (general), n (fixed with thousands separators), s (text), and "%%" for a percent sign.
// Width and precision may be "*", taken from the next argument. Numbers use the system's
// decimal comma. Raises EConvertError for a missing argument, an unknown type, or an
// argument that does not fit its type.
QString FormatText(const QString& format, std::initializer_list<Variant> args);

} // namespace norvik
