#include "FilledLetter.h"
#include "PdfProbe.h"
#include "TPageLayout.h"
#include "TPrintLink.h"
#include "TestDocx.h"
#include "TestEnvironment.h"

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <gtest/gtest.h>

using engine::TPrintLink;

namespace {

// three pages: two forced breaks
engine::TDocument& threePages(engine::TDocument& document) {
    const QString breakBefore = QStringLiteral("<w:pPr><w:pageBreakBefore/></w:pPr>");
    document.loadOpenXml(TestDocx()
                             .body(QStringLiteral("<w:p><w:r><w:t>Seite eins</w:t></w:r></w:p>"
                                                  "<w:p>%1<w:r><w:t>Seite zwei</w:t></w:r></w:p>"
                                                  "<w:p>%1<w:r><w:t>Seite drei</w:t></w:r></w:p>")
                                       .arg(breakBefore))
                             .header(QStringLiteral("<w:p><w:r><w:t>Kopfzeile</w:t></w:r></w:p>"))
                             .bytes());
    return document;
}

int previewPageCount(TPrintLink& link) {
    const auto dialog = link.createPreviewDialog(nullptr);
    auto* preview = dialog->findChild<QPrintPreviewWidget*>();
    if (!preview)
        return -1;
    preview->updatePreview();
    return preview->pageCount();
}

} // namespace

TEST(PrintLink, PreviewShowsThePagesOfTheLayout) {
    engine::TDocument document;
    TPrintLink link(threePages(document));
    EXPECT_EQ(previewPageCount(link), engine::TPageLayout(document).pageCount());
    EXPECT_EQ(previewPageCount(link), 3);

    FilledLetter letter;
    TPrintLink letterLink(letter.document());
    EXPECT_EQ(previewPageCount(letterLink), engine::TPageLayout(letter.document()).pageCount());
}

TEST(PrintLink, PrintingIntoAPdfPrinterGivesEveryPageWithItsText) {
    engine::TDocument document;
    TPrintLink link(threePages(document));
    testsupport::TempDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("gedruckt.pdf")));
    ASSERT_TRUE(link.print(printer));

    QFile file(printer.outputFileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const PdfProbe probe(file.readAll());
    EXPECT_EQ(probe.pageCount(), 3);
    const QStringList pages = probe.text().split(u'\f');
    ASSERT_GE(pages.size(), 3);
    for (int page = 0; page < 3; ++page) {
        EXPECT_TRUE(pages[page].contains(QStringLiteral("Kopfzeile"))) << page;
        EXPECT_TRUE(pages[page].contains(QStringList{
            QStringLiteral("Seite eins"), QStringLiteral("Seite zwei"), QStringLiteral("Seite drei")}[page]))
            << page;
    }
    // the sheet is A4, as the section says
    const PdfProbe::TWord word = probe.word(QStringLiteral("Kopfzeile"));
    EXPECT_NEAR(word.pageSize.width(), 595.3, 1.0);
    EXPECT_NEAR(word.pageSize.height(), 841.9, 1.0);
}

TEST(PrintLink, PrintedTextStandsWhereThePdfExportPutsIt) {
    FilledLetter letter;
    TPrintLink link(letter.document());
    testsupport::TempDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("brief.pdf")));
    ASSERT_TRUE(link.print(printer));
    QFile file(printer.outputFileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const PdfProbe printed(file.readAll());
    const PdfProbe exported(link.exportToPdf());
    EXPECT_EQ(printed.pageCount(), exported.pageCount());
    for (const QString& text : {QStringLiteral("Physiotherapeutischer"), QStringLiteral("Lumbalgie"),
                                QStringLiteral("Grüßen"), QStringLiteral("Physiotherapeutin")}) {
        const QRectF a = printed.word(text).box;
        const QRectF b = exported.word(text).box;
        EXPECT_NEAR(a.left(), b.left(), 1.0) << text.toStdString();
        EXPECT_NEAR(a.top(), b.top(), 1.0) << text.toStdString();
    }
}

TEST(PrintLink, ExportsToAFileAndToBytes) {
    engine::TDocument document;
    TPrintLink link(threePages(document));
    link.setTitle(QStringLiteral("Physiotherapeutischer Bericht"));
    testsupport::TempDir folder;
    const QString fileName = folder.filePath(QStringLiteral("export.pdf"));
    ASSERT_TRUE(link.exportToPdfFile(fileName));
    QFile file(fileName);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(PdfProbe(file.readAll()).pageCount(), 3);
    const QByteArray bytes = link.exportToPdf();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_TRUE(PdfProbe(bytes).text().contains(QStringLiteral("Seite drei")));
}

TEST(PrintLink, AnUnwritableTargetFailsWithoutHarm) {
    engine::TDocument document;
    TPrintLink link(threePages(document));
    const QString nowhere = QStringLiteral("/nonexistent-folder/sub/brief.pdf");
    EXPECT_FALSE(link.exportToPdfFile(nowhere));
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(nowhere);
    EXPECT_FALSE(link.print(printer));
}
