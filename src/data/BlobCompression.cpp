#include "BlobCompression.h"

#include "DBExceptions.h"

#include <QtEndian>

namespace norvik {

namespace {

const QByteArray Magic = QByteArrayLiteral("CMP2");
constexpr int HeaderSize = 8;
// qCompress puts the size in front of the zlib stream, big-endian
constexpr int QtSizePrefix = 4;

} // namespace

bool BlobCompression::IsCompressed(const QByteArray& AData) {
    return AData.startsWith(Magic);
}

QByteArray BlobCompression::Compress(const QByteArray& AData, int ACompressionLevel) {
    if (ACompressionLevel == 0)
        return AData;
    QByteArray result = Magic;
    result.resize(HeaderSize);
    qToLittleEndian<qint32>(qint32(AData.size()), result.data() + Magic.size());
    result.append(qCompress(AData, qBound(1, ACompressionLevel, 9)).mid(QtSizePrefix));
    return result;
}

QByteArray BlobCompression::Decompress(const QByteArray& AData) {
    if (!IsCompressed(AData))
        return AData;
    if (AData.size() < HeaderSize)
        return {};
    const qint32 size = qFromLittleEndian<qint32>(AData.constData() + Magic.size());
    if (size <= 0)
        return {};
    QByteArray qtForm(QtSizePrefix, '\0');
    qToBigEndian<quint32>(quint32(size), qtForm.data());
    qtForm.append(AData.mid(HeaderSize));
    const QByteArray result = qUncompress(qtForm);
    if (result.size() != size)
        throw EDBUtilsException(QStringLiteral("Die komprimierten Daten sind beschädigt."));
    return result;
}

} // namespace norvik
