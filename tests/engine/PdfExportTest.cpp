#include "PdfProbe.h"
#include "TDocument.h"
#include "TPdfExporter.h"
#include "TestDocx.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using engine::TDocument;

namespace {

using docx::textParagraph;

QByteArray pdfOf(const TestDocx& docx) {
    TDocument document;
    document.loadOpenXml(docx.bytes());
    return engine::TPdfExporter::toPdf(document);
}

QString numberedParagraphs(int count) {
    QString body;
    for (int i = 1; i <= count; ++i)
        body += textParagraph(QStringLiteral("Zeile%1").arg(i));
    return body;
}

QByteArray withoutDates(QByteArray pdf) {
    static const QRegularExpression dates(
        QStringLiteral("D:\\d{14}|\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ"));
    return QString::fromLatin1(pdf).replace(dates, QStringLiteral("DATE")).toLatin1();
}

const QString kAnchoredPicture = QStringLiteral(
    "<w:r><w:drawing><wp:anchor behindDoc=\"0\" simplePos=\"0\"><wp:simplePos x=\"0\" y=\"0\"/>"
    "<wp:positionH relativeFrom=\"margin\"><wp:align>right</wp:align></wp:positionH>"
    "<wp:positionV relativeFrom=\"paragraph\"><wp:posOffset>0</wp:posOffset></wp:positionV>"
    "<wp:extent cx=\"540000\" cy=\"540000\"/><wp:wrapNone/><wp:docPr id=\"5\" name=\"Bild\"/>"
    "<a:graphic><a:graphicData uri=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><pic:pic>"
    "<pic:blipFill><a:blip r:embed=\"rIdImage\"/></pic:blipFill></pic:pic></a:graphicData></a:graphic>"
    "</wp:anchor></w:drawing></w:r>");

} // namespace

TEST(PdfExport, SameDocumentGivesTheSameBytesApartFromTheDates) {
    const TestDocx docx =
        TestDocx().body(numberedParagraphs(5)).header(textParagraph(QStringLiteral("Kopf")));
    const QByteArray first = pdfOf(docx);
    const QByteArray second = pdfOf(docx);
    ASSERT_TRUE(first.startsWith("%PDF-"));
    EXPECT_EQ(withoutDates(first), withoutDates(second));
    EXPECT_TRUE(first.contains("/FontFile2")) << "fonts are embedded";
    EXPECT_TRUE(first.contains("pdfaid:part=\"1\""));
}

TEST(PdfExport, LongBodyFlowsOverPagesWithoutLosingOrRepeatingALine) {
    const PdfProbe probe(pdfOf(TestDocx().body(numberedParagraphs(150))));
    EXPECT_GE(probe.pageCount(), 3);
    const QStringList words = [&] {
        QStringList result;
        for (const auto& word : probe.words())
            result.append(word.text);
        return result;
    }();
    for (int i = 1; i <= 150; ++i)
        EXPECT_EQ(words.count(QStringLiteral("Zeile%1").arg(i)), 1) << i;
    for (const auto& word : probe.words()) {
        EXPECT_GT(word.box.top(), 1417 / 20.0 - 1) << word.text.toStdString();
        EXPECT_LT(word.box.bottom(), (16838 - 1134) / 20.0 + 1) << word.text.toStdString();
    }
}

TEST(PdfExport, PageBreakStartsANewPage) {
    const PdfProbe probe(pdfOf(TestDocx().body(
        textParagraph(QStringLiteral("Vorne")) +
        QStringLiteral("<w:p><w:r><w:t>Hinten</w:t><w:br w:type=\"page\"/><w:t>Umbruch</w:t></w:r></w:p>"))));
    EXPECT_EQ(probe.pageCount(), 2);
    EXPECT_EQ(probe.word(QStringLiteral("Hinten")).page, 1);
    EXPECT_EQ(probe.word(QStringLiteral("Umbruch")).page, 2);
}

TEST(PdfExport, HeaderAndFooterStandOnEveryPage) {
    const PdfProbe probe(pdfOf(TestDocx()
                                   .body(numberedParagraphs(120))
                                   .header(textParagraph(QStringLiteral("Kopfzeile")))
                                   .footer(textParagraph(QStringLiteral("Fusszeile")))));
    ASSERT_GE(probe.pageCount(), 2);
    QList<int> headerPages;
    QList<int> footerPages;
    for (const auto& word : probe.words()) {
        if (word.text == u"Kopfzeile") {
            headerPages.append(word.page);
            EXPECT_NEAR(word.box.top(), 708 / 20.0, 6.0);
        }
        if (word.text == u"Fusszeile") {
            footerPages.append(word.page);
            EXPECT_NEAR(word.box.bottom(), (16838 - 708) / 20.0, 6.0);
        }
    }
    EXPECT_EQ(headerPages.size(), probe.pageCount());
    EXPECT_EQ(footerPages.size(), probe.pageCount());
}

TEST(PdfExport, TallHeaderPushesTheBodyDown) {
    QString header;
    for (int i = 1; i <= 8; ++i)
        header += textParagraph(QStringLiteral("Kopf%1").arg(i));
    const PdfProbe probe(pdfOf(TestDocx().body(textParagraph(QStringLiteral("Brieftext"))).header(header)));
    EXPECT_GT(probe.word(QStringLiteral("Brieftext")).box.top(),
              probe.word(QStringLiteral("Kopf8")).box.bottom());
}

TEST(PdfExport, PicturesStayLosslessAndAnchoredPicturesStandWhereTheySay) {
    const QByteArray pdf =
        pdfOf(TestDocx()
                  .picture(TestDocx::samplePng(40, 40))
                  .body(QStringLiteral("<w:p>") + kAnchoredPicture + QStringLiteral("</w:p>") +
                        QStringLiteral(
                            "<w:p><w:r><w:drawing><wp:inline><wp:extent cx=\"360000\" cy=\"360000\"/>"
                            "<a:graphic><a:graphicData><pic:pic><pic:blipFill><a:blip r:embed=\"rIdImage\"/>"
                            "</pic:blipFill></pic:pic></a:graphicData></a:graphic></wp:inline></w:drawing>"
                            "<w:t>neben Bild</w:t></w:r></w:p>")));
    const QStringList images = PdfProbe(pdf).images();
    ASSERT_EQ(images.size(), 2);
    for (const QString& line : images)
        EXPECT_FALSE(line.contains(QStringLiteral("jpeg"))) << line.toStdString();
}

TEST(PdfExport, ContinuousSectionStaysOnThePageAndANewOneStartsAPage) {
    const QString firstSection = QStringLiteral(
        "<w:p><w:pPr><w:sectPr><w:pgSz w:w=\"11906\" w:h=\"16838\"/><w:pgMar w:top=\"1417\" w:right=\"1417\" "
        "w:bottom=\"1134\" w:left=\"1417\" w:header=\"708\" w:footer=\"708\"/></w:sectPr></w:pPr>"
        "<w:r><w:t>Eins</w:t></w:r></w:p>");
    const struct {
        const char* type;
        int pages;
    } cases[] = {{"<w:type w:val=\"continuous\"/>", 1}, {"<w:type w:val=\"nextPage\"/>", 2}, {"", 2}};
    for (const auto& expected : cases) {
        const PdfProbe probe(pdfOf(TestDocx()
                                       .body(firstSection + textParagraph(QStringLiteral("Zwei")))
                                       .sectionExtras(QString::fromUtf8(expected.type))));
        EXPECT_EQ(probe.pageCount(), expected.pages) << expected.type;
        EXPECT_EQ(probe.word(QStringLiteral("Zwei")).page, expected.pages) << expected.type;
        EXPECT_EQ(probe.word(QStringLiteral("Eins")).page, 1) << expected.type;
    }
}

TEST(PdfExport, FirstPageHasItsOwnHeaderWhenTheSectionAsksForIt) {
    const PdfProbe probe(
        pdfOf(TestDocx()
                  .body(numberedParagraphs(90))
                  .header(textParagraph(QStringLiteral("Folgeseite")))
                  .header(textParagraph(QStringLiteral("Briefkopf")), QStringLiteral("first"))
                  .sectionExtras(QStringLiteral("<w:titlePg/>"))));
    ASSERT_GE(probe.pageCount(), 2);
    QList<int> firstPages;
    QList<int> followingPages;
    for (const auto& word : probe.words()) {
        if (word.text == u"Briefkopf")
            firstPages.append(word.page);
        if (word.text == u"Folgeseite")
            followingPages.append(word.page);
    }
    EXPECT_EQ(firstPages, QList<int>{1});
    EXPECT_EQ(followingPages.size(), probe.pageCount() - 1);
    EXPECT_FALSE(followingPages.contains(1));
}
