#include "ZLIBUtils.h"

#include "AnsiCodePage.h"
#include "BlobCompression.h"

#include <QStringConverter>

namespace norvik {

QString ZLIBUtils::VariantToText(const Variant& AValue) {
    if (AValue.isUnassigned() || AValue.isNull())
        return {};
    if (AValue.isString())
        return AValue.toString();
    if (AValue.valueType() != VarType::Bytes)
        throw ZLIBUtilException(QStringLiteral(
            "Ungültiger Datentyp für die Verarbeitung von Rohdaten! (nvUncompressVariantToBytes)"));
    return DecodeText(BlobCompression::Decompress(AValue.toBytes()));
}

QByteArray ZLIBUtils::TextToBytes(const QString& AText, int ACompressionLevel) {
    return BlobCompression::Compress(platform::AnsiCodePage::encode(AText), ACompressionLevel);
}

QString ZLIBUtils::DecodeText(const QByteArray& ABytes) {
    if (const auto encoding = QStringConverter::encodingForData(ABytes))
        return QStringDecoder(*encoding).decode(ABytes);
    return platform::AnsiCodePage::decode(ABytes);
}

} // namespace norvik
