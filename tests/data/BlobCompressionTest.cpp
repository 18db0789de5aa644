#include "BlobCompression.h"

#include "DBExceptions.h"

#include <QtEndian>
#include <gtest/gtest.h>

using norvik::BlobCompression;

namespace {

const QByteArray Text = QByteArray("ExportFolder=C:\\Daten\\Out\r\nAbsender=Praxis\r\n").repeated(10);

TEST(BlobCompression, WritesMagicSizeAndStream) {
    const QByteArray packed = BlobCompression::Compress(Text, 6);
    EXPECT_TRUE(packed.startsWith("CMP2"));
    EXPECT_EQ(qFromLittleEndian<qint32>(packed.constData() + 4), Text.size());
    EXPECT_LT(packed.size(), Text.size());
    EXPECT_TRUE(BlobCompression::IsCompressed(packed));
    EXPECT_EQ(BlobCompression::Decompress(packed), Text);
}

TEST(BlobCompression, LevelZeroAndPlainDataStayAsTheyAre) {
    EXPECT_EQ(BlobCompression::Compress(Text, 0), Text);
    EXPECT_FALSE(BlobCompression::IsCompressed(Text));
    EXPECT_EQ(BlobCompression::Decompress(Text), Text);
    EXPECT_EQ(BlobCompression::Decompress(QByteArray()), QByteArray());
}

TEST(BlobCompression, ASizeOfZeroOrAShortHeaderGivesNoData) {
    QByteArray zero = BlobCompression::Compress(Text, 6);
    qToLittleEndian<qint32>(0, zero.data() + 4);
    EXPECT_TRUE(BlobCompression::Decompress(zero).isEmpty());
    EXPECT_TRUE(BlobCompression::Decompress(QByteArray("CMP2\x01", 5)).isEmpty());
}

TEST(BlobCompression, ADamagedStreamRaises) {
    QByteArray damaged = BlobCompression::Compress(Text, 6);
    damaged.truncate(damaged.size() / 2);
    EXPECT_THROW(BlobCompression::Decompress(damaged), norvik::EDBUtilsException);
}

} // namespace
