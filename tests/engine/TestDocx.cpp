#include "TestDocx.h"

#include "TDocument.h"

#include <QBuffer>
#include <QImage>
#include <gtest/gtest.h>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

namespace {

QString partName(int index, bool isHeader) {
    return (isHeader ? QStringLiteral("header%1.xml") : QStringLiteral("footer%1.xml")).arg(index + 1);
}

void addFile(QuaZip& zip, const QString& name, const QByteArray& content) {
    QuaZipFile file(&zip);
    if (!file.open(QIODevice::WriteOnly, QuaZipNewInfo(name)) || file.write(content) != content.size())
        ADD_FAILURE() << "cannot pack " << name.toStdString();
}

} // namespace

TestDocx& TestDocx::body(const QString& xml) {
    m_body = xml;
    return *this;
}

TestDocx& TestDocx::styles(const QString& xml) {
    m_styles = xml;
    return *this;
}

TestDocx& TestDocx::header(const QString& xml, const QString& kind) {
    m_parts.append({kind, xml, true});
    return *this;
}

TestDocx& TestDocx::footer(const QString& xml, const QString& kind) {
    m_parts.append({kind, xml, false});
    return *this;
}

TestDocx& TestDocx::picture(const QByteArray& png) {
    m_picture = png;
    return *this;
}

TestDocx& TestDocx::sectionExtras(const QString& xml) {
    m_sectionExtras = xml;
    return *this;
}

QString TestDocx::namespaces() {
    return QStringLiteral(
        "xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
        "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
        "xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\" "
        "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" "
        "xmlns:pic=\"http://schemas.openxmlformats.org/drawingml/2006/picture\" "
        "xmlns:wps=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\" "
        "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" "
        "xmlns:v=\"urn:schemas-microsoft-com:vml\" xmlns:o=\"urn:schemas-microsoft-com:office:office\"");
}

QByteArray TestDocx::samplePng(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 40));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QString TestDocx::documentXml() const {
    QString references;
    for (int i = 0; i < m_parts.size(); ++i) {
        references += QStringLiteral("<w:%1Reference w:type=\"%2\" r:id=\"rIdPart%3\"/>")
                          .arg(m_parts[i].isHeader ? QStringLiteral("header") : QStringLiteral("footer"),
                               m_parts[i].kind)
                          .arg(i + 1);
    }
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><w:document ") +
           namespaces() + QStringLiteral("><w:body>") + m_body + QStringLiteral("<w:sectPr>") + references +
           QStringLiteral("<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"
                          "<w:pgMar w:top=\"1417\" w:right=\"1417\" w:bottom=\"1134\" w:left=\"1417\" "
                          "w:header=\"708\" w:footer=\"708\" w:gutter=\"0\"/>") +
           m_sectionExtras + QStringLiteral("</w:sectPr></w:body></w:document>");
}

QString TestDocx::relationshipsXml(bool withParts) const {
    QString xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships "
                                 "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">");
    const QString base =
        QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships/");
    if (!m_picture.isEmpty()) {
        xml += QStringLiteral("<Relationship Id=\"rIdImage\" Type=\"%1image\" Target=\"media/picture.png\"/>")
                   .arg(base);
    }
    if (withParts) {
        if (!m_styles.isEmpty())
            xml += QStringLiteral("<Relationship Id=\"rIdStyles\" Type=\"%1styles\" Target=\"styles.xml\"/>")
                       .arg(base);
        for (int i = 0; i < m_parts.size(); ++i) {
            xml += QStringLiteral("<Relationship Id=\"rIdPart%1\" Type=\"%2%3\" Target=\"%4\"/>")
                       .arg(i + 1)
                       .arg(base, m_parts[i].isHeader ? QStringLiteral("header") : QStringLiteral("footer"),
                            partName(i, m_parts[i].isHeader));
        }
    }
    return xml + QStringLiteral("</Relationships>");
}

QString TestDocx::contentTypesXml() const {
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Types "
        "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
        "<Default Extension=\"rels\" "
        "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
        "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
        "<Default Extension=\"png\" ContentType=\"image/png\"/>"
        "<Override PartName=\"/word/document.xml\" "
        "ContentType=\"application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml\"/>"
        "</Types>");
}

QByteArray TestDocx::bytes() const {
    QByteArray result;
    QBuffer buffer(&result);
    QuaZip zip(&buffer);
    if (!zip.open(QuaZip::mdCreate)) {
        ADD_FAILURE() << "cannot create a ZIP package";
        return {};
    }
    addFile(zip, QStringLiteral("[Content_Types].xml"), contentTypesXml().toUtf8());
    addFile(
        zip, QStringLiteral("_rels/.rels"),
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships "
                       "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                       "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/officeDocument/"
                       "2006/relationships/officeDocument\" Target=\"word/document.xml\"/></Relationships>")
            .toUtf8());
    addFile(zip, QStringLiteral("word/document.xml"), documentXml().toUtf8());
    addFile(zip, QStringLiteral("word/_rels/document.xml.rels"), relationshipsXml(true).toUtf8());
    if (!m_styles.isEmpty()) {
        addFile(
            zip, QStringLiteral("word/styles.xml"),
            (QStringLiteral("<w:styles ") + namespaces() + u'>' + m_styles + QStringLiteral("</w:styles>"))
                .toUtf8());
    }
    for (int i = 0; i < m_parts.size(); ++i) {
        const QString root = m_parts[i].isHeader ? QStringLiteral("w:hdr") : QStringLiteral("w:ftr");
        const QString name = partName(i, m_parts[i].isHeader);
        addFile(
            zip, QStringLiteral("word/") + name,
            (u'<' + root + u' ' + namespaces() + u'>' + m_parts[i].xml + QStringLiteral("</") + root + u'>')
                .toUtf8());
        addFile(zip, QStringLiteral("word/_rels/") + name + QStringLiteral(".rels"),
                relationshipsXml(false).toUtf8());
    }
    if (!m_picture.isEmpty())
        addFile(zip, QStringLiteral("word/media/picture.png"), m_picture);
    zip.close();
    return result;
}

namespace docx {

QString run(const QString& text, const QString& properties) {
    return QStringLiteral("<w:r><w:rPr>%2</w:rPr><w:t xml:space=\"preserve\">%1</w:t></w:r>")
        .arg(text, properties);
}

QString paragraph(const QString& content, const QString& properties) {
    return QStringLiteral("<w:p><w:pPr>%2</w:pPr>%1</w:p>").arg(content, properties);
}

QString textParagraph(const QString& text, const QString& runProperties) {
    return paragraph(run(text, runProperties));
}

std::unique_ptr<engine::TDocument> load(const QByteArray& package) {
    auto document = std::make_unique<engine::TDocument>();
    document->loadOpenXml(package);
    return document;
}

std::unique_ptr<engine::TDocument> load(const TestDocx& package) {
    return load(package.bytes());
}

} // namespace docx
