#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <memory>
#include <utility>

namespace engine {
class TDocument;
}

// Builds a DOCX package from WordprocessingML text written in the test, so that every test
// document is readable where it is used. The namespaces of Word's parts are declared for it.
class TestDocx {
public:
    // the content of w:body, without the section properties
    TestDocx& body(const QString& xml);
    // the content of w:styles
    TestDocx& styles(const QString& xml);
    // a header or footer of a kind ("default", "first", "even"), the content of w:hdr or w:ftr
    TestDocx& header(const QString& xml, const QString& kind = QStringLiteral("default"));
    TestDocx& footer(const QString& xml, const QString& kind = QStringLiteral("default"));
    // a picture under word/media, referenced from the body and all headers as rIdImage
    TestDocx& picture(const QByteArray& png);
    // extra children of w:sectPr, such as <w:titlePg/>
    TestDocx& sectionExtras(const QString& xml);

    QByteArray bytes() const;

    // an opening w:document with all namespaces, for tests that write the whole part
    static QString namespaces();
    // a small opaque PNG of one colour
    static QByteArray samplePng(int width, int height);

private:
    struct TPart {
        QString kind;
        QString xml;
        bool isHeader;
    };

    QString documentXml() const;
    QString relationshipsXml(bool withParts) const;
    QString contentTypesXml() const;

    QString m_body;
    QString m_styles;
    QString m_sectionExtras;
    QList<TPart> m_parts;
    QByteArray m_picture;
};

// Pieces of WordprocessingML for the body of a TestDocx, and the loading of a package.
namespace docx {

QString run(const QString& text, const QString& properties = QString());
QString paragraph(const QString& content, const QString& properties = QString());
QString textParagraph(const QString& text, const QString& runProperties = QString());
std::unique_ptr<engine::TDocument> load(const QByteArray& package);
std::unique_ptr<engine::TDocument> load(const TestDocx& package);

} // namespace docx
