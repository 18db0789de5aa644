#pragma once

#include "Exception.h"
#include "Variant.h"

#include <QByteArray>
#include <QString>

namespace norvik {

// Raised for a value that cannot be taken as raw data.
class ZLIBUtilException : public Exception {
public:
    using Exception::Exception;
};

// Text kept in a blob, plain or in the compressed form "CMP2" (see BlobCompression).
class ZLIBUtils {
public:
    // Unassigned and Null give an empty text, strings come as they are, bytes go through the
    // decompressor and are decoded: by their byte-order mark, else in the ANSI code page.
    // Raises ZLIBUtilException for a value of any other type.
    static QString VariantToText(const Variant& AValue);
    // the text in the ANSI code page, compressed at ACompressionLevel (0: plain)
    static QByteArray TextToBytes(const QString& AText, int ACompressionLevel);
    // bytes decoded by their byte-order mark, else in the ANSI code page
    static QString DecodeText(const QByteArray& ABytes);
};

} // namespace norvik
