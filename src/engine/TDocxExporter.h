#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QList>
#include <QString>
#include <QTextFrame>

class QIODevice;
class QTextBlock;
class QTextTable;
class QXmlStreamWriter;

namespace engine {

class TDocument;
class TDocSection;
class TDocShape;
class TSubDocument;

// Writes the engine's document as a DOCX package that word processors open with the same text,
// page geometry and pictures. All formatting is written directly at the paragraphs and runs, so
// that the result doesn't depend on the styles of the program that opens it.
class TDocxExporter {
public:
    explicit TDocxExporter(const TDocument& source);
    ~TDocxExporter();

    // writes the package once per exporter; raises EDocumentError if the target refuses it
    void write(QIODevice& target);
    static QByteArray toDocx(const TDocument& source);
    // false if the file can't be written
    static bool toFile(const TDocument& source, const QString& fileName);

private:
    struct TRelationship {
        QString id;
        QString type;
        QString target;
    };
    // a part being written, with the relationships it gains on the way
    struct TPart {
        QString name;
        QList<TRelationship> relationships;
        QString addRelationship(const QString& type, const QString& target);
    };

    QByteArray documentPart();
    QByteArray headerFooterPart(const TSubDocument& flow, bool isHeader, TPart& part);
    QByteArray stylesPart() const;
    QByteArray settingsPart() const;
    QByteArray contentTypesPart() const;
    static QByteArray relationshipsPart(const QList<TRelationship>& relationships);

    void writeFlow(QXmlStreamWriter& xml, const TSubDocument& flow, QTextFrame::iterator it, TPart& part);
    void writeParagraph(QXmlStreamWriter& xml, const TSubDocument& flow, const QTextBlock& block,
                        TPart& part);
    // lastLine is the last block of the paragraph, which may continue behind line breaks
    void writeParagraphProperties(QXmlStreamWriter& xml, const QTextBlock& block, const QTextBlock& lastLine,
                                  const TDocSection* closedSection);
    void writeRuns(QXmlStreamWriter& xml, const QTextBlock& block, TPart& part);
    void writeTable(QXmlStreamWriter& xml, const TSubDocument& flow, QTextTable& table, TPart& part);
    void writeSection(QXmlStreamWriter& xml, const TDocSection& section);
    void writeHeaderFooterReferences(QXmlStreamWriter& xml, const TDocSection& section, bool isHeader);
    // the relationship id of the header or footer part, written on first use
    QString headerFooterRelationship(const TSubDocument& flow, bool isHeader);

    void writeInlinePicture(QXmlStreamWriter& xml, const QImage& picture, double width, double height,
                            TPart& part);
    void writeAnchoredShape(QXmlStreamWriter& xml, const TDocShape& shape, TPart& part);
    void writePictureGraphic(QXmlStreamWriter& xml, const QImage& picture, double width, double height,
                             TPart& part);
    void writeTextBoxGraphic(QXmlStreamWriter& xml, const TDocShape& shape, TPart& part);
    // the relationship id of the picture in the part; the picture goes to word/media once
    QString pictureRelationship(const QImage& picture, TPart& part);

    const TDocument& m_source;
    QHash<const TSubDocument*, QString> m_headerFooterIds;
    QHash<QString, QByteArray> m_files;
    QHash<qint64, QString> m_media;
    TPart m_documentPart;
    int m_drawingId = 0;
    // the body's paragraphs that close a section other than the last, by block number
    QHash<int, const TDocSection*> m_sectionEnds;
};

} // namespace engine
