#include "FileUtils.h"

#include "TestEnvironment.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

struct FileCase {
    const char* title;
    QByteArray content;
    const char16_t* text;
};

class ReadUtf8FileTest : public testing::TestWithParam<FileCase> {};

TEST_P(ReadUtf8FileTest, DecodesTheWholeFile) {
    testsupport::TempDir dir;
    QString text;
    EXPECT_TRUE(TryReadUtf8File(dir.writeFile(QStringLiteral("f.txt"), GetParam().content), text));
    EXPECT_EQ(text, QString::fromUtf16(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Contents, ReadUtf8FileTest,
                         testing::Values(FileCase{"Empty", "", u""},
                                         FileCase{"Umlauts", "Gr\xC3\xBC\xC3\x9F\x65", u"Grüße"},
                                         FileCase{"ByteOrderMarkDropped", "\xEF\xBB\xBFja", u"ja"},
                                         FileCase{"LineBreaksKept", "a\r\nb\n", u"a\r\nb\n"},
                                         FileCase{"InvalidBytesReplaced",
                                                  "a\xFF"
                                                  "b",
                                                  u"a\uFFFDb"}),
                         [](const testing::TestParamInfo<FileCase>& info) {
                             return std::string(info.param.title);
                         });

TEST(ReadUtf8FileTest, MissingFileGivesFalseAndEmptyText) {
    testsupport::TempDir dir;
    QString text = QStringLiteral("old");
    EXPECT_FALSE(TryReadUtf8File(dir.filePath(QStringLiteral("missing.txt")), text));
    EXPECT_TRUE(text.isEmpty());
}

TEST(ReadUtf8FileTest, FolderCannotBeRead) {
    testsupport::TempDir dir;
    QString text;
    EXPECT_FALSE(TryReadUtf8File(dir.path(), text));
}

} // namespace
