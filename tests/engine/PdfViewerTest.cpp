#include "TDocument.h"
#include "TPdfExporter.h"
#include "TPdfViewer.h"
#include "TestDocx.h"

#include <QBuffer>
#include <QPdfView>
#include <gtest/gtest.h>

using engine::TPdfViewer;

namespace {

// a letter of two pages, as the exporter writes it
QByteArray twoPagePdf() {
    engine::TDocument document;
    document.loadOpenXml(
        TestDocx()
            .body(QStringLiteral("<w:p><w:r><w:t>Seite eins</w:t></w:r></w:p><w:p><w:pPr>"
                                 "<w:pageBreakBefore/></w:pPr><w:r><w:t>Seite zwei</w:t></w:r></w:p>"))
            .bytes());
    return engine::TPdfExporter::toPdf(document);
}

const QByteArray kMessageLine = "UNA:+.? 'UNB+UNOC:3+SENDER+EMPF'UNH+1+MEDRPT:D:96A:UN'\r\n";

struct TPartCase {
    const char* name;
    QByteArray bytes;
    QByteArray expected;
};

TEST(PdfViewer, FindsThePdfBehindWhateverStandsBeforeIt) {
    const QByteArray pdf = "%PDF-1.4\n\x80\x81\r\n%%EOF\n";
    const TPartCase cases[] = {
        {"plain PDF", pdf, pdf},
        {"outbox file", kMessageLine + pdf, pdf},
        {"no PDF", QByteArray("UNH+1+MEDRPT'\r\nnur Text"), QByteArray()},
        {"nothing", QByteArray(), QByteArray()},
        {"cut header", QByteArray("%PD"), QByteArray()},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TPdfViewer::pdfPart(c.bytes), c.expected) << c.name;
}

TEST(PdfViewer, ShowsAllPagesOfAPlainPdfAndOfAnOutboxFile) {
    const QByteArray pdf = twoPagePdf();
    for (const QByteArray& bytes : {pdf, QByteArray(kMessageLine + pdf)}) {
        TPdfViewer viewer;
        viewer.resize(400, 600);
        viewer.show();
        ASSERT_TRUE(viewer.load(bytes));
        EXPECT_FALSE(viewer.isEmpty());
        EXPECT_EQ(viewer.pageCount(), 2);
        EXPECT_NE(viewer.view().document(), nullptr);
        EXPECT_FALSE(viewer.grab().isNull());
    }
}

TEST(PdfViewer, LoadsFromAStream) {
    QByteArray bytes = kMessageLine + twoPagePdf();
    QBuffer stream(&bytes);
    stream.open(QIODevice::ReadOnly);
    TPdfViewer viewer;
    EXPECT_TRUE(viewer.loadFromStream(stream));
    EXPECT_EQ(viewer.pageCount(), 2);
}

TEST(PdfViewer, GarbageLeavesTheViewerEmptyAndReplacesWhatWasShown) {
    const QByteArray garbage[] = {QByteArray("kein PDF"), QByteArray(), kMessageLine,
                                  QByteArray("%PDF-1.4\nabgeschnitten und kaputt")};
    for (const QByteArray& bytes : garbage) {
        TPdfViewer viewer;
        ASSERT_TRUE(viewer.load(twoPagePdf()));
        EXPECT_FALSE(viewer.load(bytes)) << bytes.constData();
        EXPECT_TRUE(viewer.isEmpty());
        EXPECT_EQ(viewer.pageCount(), 0);
        EXPECT_EQ(viewer.view().document(), nullptr);
    }
}

TEST(PdfViewer, ClearEmptiesTheViewerAndItCanLoadAgain) {
    TPdfViewer viewer;
    ASSERT_TRUE(viewer.load(twoPagePdf()));
    viewer.clear();
    EXPECT_TRUE(viewer.isEmpty());
    EXPECT_EQ(viewer.pageCount(), 0);
    EXPECT_TRUE(viewer.load(kMessageLine + twoPagePdf()));
    EXPECT_EQ(viewer.pageCount(), 2);
}

} // namespace
