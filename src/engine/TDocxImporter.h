#pragma once

#include "TDocStyleSheet.h"
#include "TDocxPackage.h"
#include "TSubDocument.h"

#include <QHash>
#include <QSet>
#include <QTextCursor>
#include <functional>
#include <memory>
#include <vector>

class QXmlStreamReader;

namespace engine {

class TDocument;
class TDocSection;
class TDocShape;

// Reads a DOCX package into the engine's document model. What the model can't show (footnotes,
// formulas, embedded objects, numbering) is left out and named on the debug log.
class TDocxImporter {
public:
    explicit TDocxImporter(TDocument& target);
    ~TDocxImporter();

    // raises EDocumentError for something that is no DOCX document
    void import(const QByteArray& docx);

private:
    struct TFlow;
    struct TParagraph;
    struct TSectionSource;
    struct TTable;

    void readSettings(const QString& documentPart);
    void readBlockContent(QXmlStreamReader& xml, TFlow& flow);
    void readBlockElement(QXmlStreamReader& xml, TFlow& flow);
    void readParagraph(QXmlStreamReader& xml, TFlow& flow);
    void startParagraph(TFlow& flow, TParagraph& paragraph);
    void readInlineContent(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph);
    void readInlineElement(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph);
    void readRun(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph);
    void readRunElement(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph,
                        const QTextCharFormat& format);
    void readBreak(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph, const QTextCharFormat& format);
    void readFieldChar(QXmlStreamReader& xml);
    void insertText(TFlow& flow, const QString& text, const QTextCharFormat& format);

    void readDrawing(QXmlStreamReader& xml, TFlow& flow);
    void readAnchor(QXmlStreamReader& xml, TFlow& flow, bool isInline);
    void readAnchorPosition(QXmlStreamReader& xml, TDocShape& shape, bool horizontal);
    void readGraphic(QXmlStreamReader& xml, TFlow& flow, TDocShape& shape);
    void readLine(QXmlStreamReader& xml, TDocShape& shape);
    void readVml(QXmlStreamReader& xml, TFlow& flow);
    void readVmlShape(QXmlStreamReader& xml, TFlow& flow);
    void placeShape(TFlow& flow, const std::shared_ptr<TDocShape>& shape, bool isInline);
    std::shared_ptr<TSubDocument> readTextBox(QXmlStreamReader& xml, const TFlow& flow);
    QImage image(const TFlow& flow, const QString& relationshipId);
    void insertInlinePicture(TFlow& flow, const QImage& picture, const QSizeF& size);

    void readAlternateContent(QXmlStreamReader& xml, const std::function<void(QXmlStreamReader&)>& element);
    void readTable(QXmlStreamReader& xml, TFlow& flow);
    void readTableProperties(QXmlStreamReader& xml, TTable& table);
    void createTable(TFlow& flow, TTable& table);
    void readTableRow(QXmlStreamReader& xml, TFlow& flow, TTable& table);
    // gives the number of grid columns the cell spans
    int readTableCell(QXmlStreamReader& xml, const TFlow& flow, TTable& table, int column);
    // formats the cell, merges it over its span, and gives the place for its content
    QTextCursor prepareCell(TTable& table, int column, int span);

    TSectionSource readSection(QXmlStreamReader& xml);
    void buildSections(std::vector<TSectionSource>& sources, TFlow& body);
    std::shared_ptr<TSubDocument> headerFooter(const QString& partName);
    std::unique_ptr<TSubDocument> newSubDocument() const;

    void report(const QString& what);
    // skips the current element when the nesting has gone too deep
    bool leaveOutTooDeep(QXmlStreamReader& xml);

    TDocument& m_target;
    std::unique_ptr<TDocxPackage> m_package;
    TDocStyleSheet m_styles;
    std::shared_ptr<const QHash<QString, double>> m_characterStyleSizes;
    QHash<QString, std::shared_ptr<TSubDocument>> m_headerFooters;
    std::vector<TSectionSource> m_sections;
    // one entry per open field: whether its instruction is still being read
    std::vector<bool> m_fieldInstruction;
    QSet<QString> m_reported;
    int m_imageCount = 0;
    int m_nesting = 0;
    int m_tableNesting = 0;
};

} // namespace engine
