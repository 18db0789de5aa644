#pragma once

#include <QByteArray>

namespace norvik {

// The compressed blob form "CMP2": the four bytes "CMP2", the size of the uncompressed data
// as a little-endian 32-bit number, then the zlib stream. Data without the magic are plain.
class BlobCompression {
public:
    // level 0 keeps the bytes as they are
    static QByteArray Compress(const QByteArray& AData, int ACompressionLevel);
    // plain data come back unchanged; raises EDBUtilsException for a damaged stream
    static QByteArray Decompress(const QByteArray& AData);
    static bool IsCompressed(const QByteArray& AData);
};

} // namespace norvik
