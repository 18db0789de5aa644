#include "TDocxExporter.h"

#include "DocUnits.h"
#include "EDocumentError.h"
#include "TDocument.h"
#include "TParagraphSpacing.h"
#include "TTabLeaders.h"
#include "TTabStops.h"

#include <QBuffer>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <QXmlStreamWriter>
#include <algorithm>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

namespace engine {

namespace {

const QString kMainNamespace = QStringLiteral("http://schemas.openxmlformats.org/wordprocessingml/2006/main");
const QString kRelationshipsNamespace =
    QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships");
const QString kRelationshipType =
    QStringLiteral("http://schemas.openxmlformats.org/officeDocument/2006/relationships/");
const QString kPictureUri = QStringLiteral("http://schemas.openxmlformats.org/drawingml/2006/picture");
const QString kShapeUri = QStringLiteral("http://schemas.microsoft.com/office/word/2010/wordprocessingShape");

QString number(double value) {
    return QString::number(qRound64(value));
}

// lengths of Qt's text formats as twips and EMU
double formatToTwips(double format) {
    return units::fromFormat(format) * 1440.0 / units::kLayoutDpi;
}
QString layoutTwips(double layout) {
    return number(layout * 1440.0 / units::kLayoutDpi);
}
QString layoutEmu(double layout) {
    return number(layout * 914400.0 / units::kLayoutDpi);
}
QString formatEmu(double format) {
    return layoutEmu(units::fromFormat(format));
}

void startPart(QXmlStreamWriter& xml, const QString& root) {
    xml.writeStartDocument(QStringLiteral("1.0"), true);
    xml.writeStartElement(root);
    xml.writeAttribute(QStringLiteral("xmlns:w"), kMainNamespace);
    xml.writeAttribute(QStringLiteral("xmlns:r"), kRelationshipsNamespace);
    xml.writeAttribute(
        QStringLiteral("xmlns:wp"),
        QStringLiteral("http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing"));
    xml.writeAttribute(QStringLiteral("xmlns:a"),
                       QStringLiteral("http://schemas.openxmlformats.org/drawingml/2006/main"));
    xml.writeAttribute(QStringLiteral("xmlns:pic"), kPictureUri);
    xml.writeAttribute(QStringLiteral("xmlns:wps"), kShapeUri);
}

void writeValue(QXmlStreamWriter& xml, const QString& element, const QString& value) {
    xml.writeStartElement(element);
    xml.writeAttribute(QStringLiteral("w:val"), value);
    xml.writeEndElement();
}

QString alignmentName(Qt::Alignment alignment) {
    if (alignment & Qt::AlignJustify)
        return QStringLiteral("both");
    if (alignment & Qt::AlignHCenter)
        return QStringLiteral("center");
    if (alignment & Qt::AlignRight)
        return QStringLiteral("right");
    return QStringLiteral("left");
}

QString tabTypeName(QTextOption::TabType type) {
    switch (type) {
    case QTextOption::RightTab:
        return QStringLiteral("right");
    case QTextOption::CenterTab:
        return QStringLiteral("center");
    case QTextOption::DelimiterTab:
        return QStringLiteral("decimal");
    case QTextOption::LeftTab:
        break;
    }
    return QStringLiteral("left");
}

// before and after in layout units
void writeSpacing(QXmlStreamWriter& xml, const QTextBlockFormat& format, double before, double after) {
    xml.writeStartElement(QStringLiteral("w:spacing"));
    xml.writeAttribute(QStringLiteral("w:before"), layoutTwips(before));
    xml.writeAttribute(QStringLiteral("w:after"), layoutTwips(after));
    switch (format.lineHeightType()) {
    case QTextBlockFormat::FixedHeight:
        xml.writeAttribute(QStringLiteral("w:line"), number(formatToTwips(format.lineHeight())));
        xml.writeAttribute(QStringLiteral("w:lineRule"), QStringLiteral("exact"));
        break;
    case QTextBlockFormat::MinimumHeight:
        xml.writeAttribute(QStringLiteral("w:line"), number(formatToTwips(format.lineHeight())));
        xml.writeAttribute(QStringLiteral("w:lineRule"), QStringLiteral("atLeast"));
        break;
    case QTextBlockFormat::ProportionalHeight:
        // Word counts a line in 240ths
        xml.writeAttribute(QStringLiteral("w:line"), number(TParagraphSpacing::lineFactor(format) * 240.0));
        xml.writeAttribute(QStringLiteral("w:lineRule"), QStringLiteral("auto"));
        break;
    default:
        xml.writeAttribute(QStringLiteral("w:line"), QStringLiteral("240"));
        xml.writeAttribute(QStringLiteral("w:lineRule"), QStringLiteral("auto"));
        break;
    }
    xml.writeEndElement();
}

void writeIndents(QXmlStreamWriter& xml, const QTextBlockFormat& format) {
    xml.writeStartElement(QStringLiteral("w:ind"));
    // Qt takes the indents in device pixels, which are layout units here
    xml.writeAttribute(QStringLiteral("w:left"), layoutTwips(format.leftMargin()));
    xml.writeAttribute(QStringLiteral("w:right"), layoutTwips(format.rightMargin()));
    const double firstLine = format.textIndent() * 1440.0 / units::kLayoutDpi;
    if (firstLine < 0)
        xml.writeAttribute(QStringLiteral("w:hanging"), number(-firstLine));
    else
        xml.writeAttribute(QStringLiteral("w:firstLine"), number(firstLine));
    xml.writeEndElement();
}

void writeTabs(QXmlStreamWriter& xml, const QTextBlockFormat& format) {
    const QList<QTextOption::Tab> tabs = TTabStops::wordTabs(format);
    if (tabs.isEmpty())
        return;
    xml.writeStartElement(QStringLiteral("w:tabs"));
    for (const auto& tab : tabs) {
        xml.writeStartElement(QStringLiteral("w:tab"));
        xml.writeAttribute(QStringLiteral("w:val"), tabTypeName(tab.type));
        const QChar leader = TTabLeaders::leaderAt(format, tab.position);
        if (!leader.isNull())
            xml.writeAttribute(QStringLiteral("w:leader"), TTabLeaders::nameOf(leader));
        xml.writeAttribute(QStringLiteral("w:pos"), number(formatToTwips(tab.position)));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void writeRunProperties(QXmlStreamWriter& xml, const QTextCharFormat& format) {
    xml.writeStartElement(QStringLiteral("w:rPr"));
    const QStringList families = format.fontFamilies().toStringList();
    if (!families.isEmpty()) {
        xml.writeStartElement(QStringLiteral("w:rFonts"));
        for (const auto* slot : {"w:ascii", "w:hAnsi", "w:cs", "w:eastAsia"})
            xml.writeAttribute(QLatin1String(slot), families.first());
        xml.writeEndElement();
    }
    writeValue(xml, QStringLiteral("w:b"),
               format.fontWeight() >= QFont::Bold ? QStringLiteral("1") : QStringLiteral("0"));
    writeValue(xml, QStringLiteral("w:i"), format.fontItalic() ? QStringLiteral("1") : QStringLiteral("0"));
    if (format.fontStrikeOut())
        writeValue(xml, QStringLiteral("w:strike"), QStringLiteral("1"));
    if (format.foreground().style() != Qt::NoBrush)
        writeValue(xml, QStringLiteral("w:color"), format.foreground().color().name().mid(1).toUpper());
    if (format.fontPointSize() > 0)
        writeValue(xml, QStringLiteral("w:sz"), number(format.fontPointSize() * 2.0));
    writeValue(xml, QStringLiteral("w:u"),
               format.fontUnderline() ? QStringLiteral("single") : QStringLiteral("none"));
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        writeValue(xml, QStringLiteral("w:vertAlign"), QStringLiteral("superscript"));
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        writeValue(xml, QStringLiteral("w:vertAlign"), QStringLiteral("subscript"));
    xml.writeEndElement();
}

void writeText(QXmlStreamWriter& xml, const QString& text) {
    xml.writeStartElement(QStringLiteral("w:t"));
    xml.writeAttribute(QStringLiteral("xml:space"), QStringLiteral("preserve"));
    xml.writeCharacters(text);
    xml.writeEndElement();
}

// Writes the text of a run: tabs and line breaks are elements of their own in a run.
void writeRunContent(QXmlStreamWriter& xml, const QString& text) {
    QString pending;
    for (const QChar character : text) {
        const bool tab = character == u'\t';
        const bool lineBreak = character == QChar::LineSeparator;
        if (!tab && !lineBreak) {
            // the placeholder of an object has no meaning outside the engine
            if (character != QChar::ObjectReplacementCharacter)
                pending.append(character);
            continue;
        }
        if (!pending.isEmpty())
            writeText(xml, pending);
        pending.clear();
        xml.writeEmptyElement(tab ? QStringLiteral("w:tab") : QStringLiteral("w:br"));
    }
    if (!pending.isEmpty())
        writeText(xml, pending);
}

QString relativeName(TDocShape::TRelative relative, bool horizontal) {
    switch (relative) {
    case TDocShape::TRelative::Page:
        return QStringLiteral("page");
    case TDocShape::TRelative::Paragraph:
        return horizontal ? QStringLiteral("column") : QStringLiteral("paragraph");
    case TDocShape::TRelative::LeftMargin:
        return QStringLiteral("leftMargin");
    case TDocShape::TRelative::RightMargin:
        return QStringLiteral("rightMargin");
    case TDocShape::TRelative::TopMargin:
        return QStringLiteral("topMargin");
    case TDocShape::TRelative::BottomMargin:
        return QStringLiteral("bottomMargin");
    case TDocShape::TRelative::Margin:
        break;
    }
    return QStringLiteral("margin");
}

QString alignName(TDocShape::TAlign align, bool horizontal) {
    if (align == TDocShape::TAlign::Center)
        return QStringLiteral("center");
    if (align == TDocShape::TAlign::End)
        return horizontal ? QStringLiteral("right") : QStringLiteral("bottom");
    return horizontal ? QStringLiteral("left") : QStringLiteral("top");
}

void writeAxis(QXmlStreamWriter& xml, const TDocShape::TAxis& axis, bool horizontal) {
    xml.writeStartElement(horizontal ? QStringLiteral("wp:positionH") : QStringLiteral("wp:positionV"));
    xml.writeAttribute(QStringLiteral("relativeFrom"), relativeName(axis.relative, horizontal));
    if (axis.align == TDocShape::TAlign::Offset)
        xml.writeTextElement(QStringLiteral("wp:posOffset"), layoutEmu(axis.offset));
    else
        xml.writeTextElement(QStringLiteral("wp:align"), alignName(axis.align, horizontal));
    xml.writeEndElement();
}

void writeExtent(QXmlStreamWriter& xml, const QString& element, const QString& width, const QString& height) {
    xml.writeStartElement(element);
    xml.writeAttribute(QStringLiteral("cx"), width);
    xml.writeAttribute(QStringLiteral("cy"), height);
    xml.writeEndElement();
}

void writeColor(QXmlStreamWriter& xml, const QColor& color) {
    xml.writeStartElement(QStringLiteral("a:solidFill"));
    xml.writeStartElement(QStringLiteral("a:srgbClr"));
    xml.writeAttribute(QStringLiteral("val"), color.name().mid(1).toUpper());
    xml.writeEndElement();
    xml.writeEndElement();
}

void writeRectangle(QXmlStreamWriter& xml, const QString& width, const QString& height) {
    xml.writeStartElement(QStringLiteral("a:xfrm"));
    xml.writeEmptyElement(QStringLiteral("a:off"));
    xml.writeAttribute(QStringLiteral("x"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("y"), QStringLiteral("0"));
    writeExtent(xml, QStringLiteral("a:ext"), width, height);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("a:prstGeom"));
    xml.writeAttribute(QStringLiteral("prst"), QStringLiteral("rect"));
    xml.writeEmptyElement(QStringLiteral("a:avLst"));
    xml.writeEndElement();
}

QString kindName(int kind) {
    switch (kind) {
    case TDocSection::First:
        return QStringLiteral("first");
    case TDocSection::Even:
        return QStringLiteral("even");
    default:
        return QStringLiteral("default");
    }
}

// the paragraph's first block and the blocks that continue it behind its line breaks
QList<QTextBlock> linesOf(const QTextBlock& first) {
    QList<QTextBlock> lines = {first};
    while (lines.back().next().isValid() && TParagraphSpacing::continues(lines.back().next().blockFormat()))
        lines.append(lines.back().next());
    return lines;
}

void addToZip(QuaZip& zip, const QString& name, const QByteArray& content) {
    QuaZipFile file(&zip);
    if (!file.open(QIODevice::WriteOnly, QuaZipNewInfo(name)) || file.write(content) != content.size())
        throw EDocumentError(QStringLiteral("cannot write the part %1 of the document").arg(name));
    file.close();
}

} // namespace

QString TDocxExporter::TPart::addRelationship(const QString& type, const QString& target) {
    const QString id = QStringLiteral("rId%1").arg(relationships.size() + 1);
    relationships.append({id, kRelationshipType + type, target});
    return id;
}

TDocxExporter::TDocxExporter(const TDocument& source)
    : m_source(source) {
    m_documentPart.name = QStringLiteral("word/document.xml");
    const auto& sections = m_source.sections();
    for (size_t i = 0; i + 1 < sections.size(); ++i)
        m_sectionEnds.insert(sections[i].lastParagraph.blockNumber(), &sections[i]);
}

TDocxExporter::~TDocxExporter() = default;

void TDocxExporter::write(QIODevice& target) {
    m_documentPart.addRelationship(QStringLiteral("styles"), QStringLiteral("styles.xml"));
    m_documentPart.addRelationship(QStringLiteral("settings"), QStringLiteral("settings.xml"));
    m_files.insert(QStringLiteral("word/document.xml"), documentPart());
    m_files.insert(QStringLiteral("word/styles.xml"), stylesPart());
    m_files.insert(QStringLiteral("word/settings.xml"), settingsPart());
    m_files.insert(QStringLiteral("word/_rels/document.xml.rels"),
                   relationshipsPart(m_documentPart.relationships));
    m_files.insert(
        QStringLiteral("_rels/.rels"),
        relationshipsPart({{QStringLiteral("rId1"), kRelationshipType + QStringLiteral("officeDocument"),
                            QStringLiteral("word/document.xml")}}));
    m_files.insert(QStringLiteral("[Content_Types].xml"), contentTypesPart());

    QuaZip zip(&target);
    if (!zip.open(QuaZip::mdCreate))
        throw EDocumentError(QStringLiteral("cannot write the document"));
    // the content types come first, as some readers expect
    addToZip(zip, QStringLiteral("[Content_Types].xml"),
             m_files.value(QStringLiteral("[Content_Types].xml")));
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
        if (it.key() != u"[Content_Types].xml")
            addToZip(zip, it.key(), it.value());
    zip.close();
    if (zip.getZipError() != 0)
        throw EDocumentError(QStringLiteral("cannot write the document"));
}

QByteArray TDocxExporter::toDocx(const TDocument& source) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    TDocxExporter(source).write(buffer);
    buffer.close();
    return bytes;
}

bool TDocxExporter::toFile(const TDocument& source, const QString& fileName) {
    const QByteArray bytes = toDocx(source);
    QSaveFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray TDocxExporter::documentPart() {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    startPart(xml, QStringLiteral("w:document"));
    xml.writeStartElement(QStringLiteral("w:body"));
    const TSubDocument& body = m_source.body();
    writeFlow(xml, body, body.text().rootFrame()->begin(), m_documentPart);
    if (!m_source.sections().empty())
        writeSection(xml, m_source.sections().back());
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

QByteArray TDocxExporter::headerFooterPart(const TSubDocument& flow, bool isHeader, TPart& part) {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    startPart(xml, isHeader ? QStringLiteral("w:hdr") : QStringLiteral("w:ftr"));
    writeFlow(xml, flow, flow.text().rootFrame()->begin(), part);
    xml.writeEndDocument();
    return bytes;
}

QByteArray TDocxExporter::stylesPart() const {
    // Every paragraph and run carries its whole format; the defaults only keep a reader's own
    // defaults away from what isn't written, such as the space below paragraphs.
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument(QStringLiteral("1.0"), true);
    xml.writeStartElement(QStringLiteral("w:styles"));
    xml.writeAttribute(QStringLiteral("xmlns:w"), kMainNamespace);
    xml.writeStartElement(QStringLiteral("w:docDefaults"));
    xml.writeStartElement(QStringLiteral("w:rPrDefault"));
    QTextCharFormat defaults;
    defaults.setFontFamilies({QStringLiteral("Calibri")});
    defaults.setFontPointSize(11.0);
    writeRunProperties(xml, defaults);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("w:pPrDefault"));
    xml.writeStartElement(QStringLiteral("w:pPr"));
    writeSpacing(xml, QTextBlockFormat(), 0.0, 0.0);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("w:style"));
    xml.writeAttribute(QStringLiteral("w:type"), QStringLiteral("paragraph"));
    xml.writeAttribute(QStringLiteral("w:default"), QStringLiteral("1"));
    xml.writeAttribute(QStringLiteral("w:styleId"), QStringLiteral("Normal"));
    writeValue(xml, QStringLiteral("w:name"), QStringLiteral("Normal"));
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

QByteArray TDocxExporter::settingsPart() const {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument(QStringLiteral("1.0"), true);
    xml.writeStartElement(QStringLiteral("w:settings"));
    xml.writeAttribute(QStringLiteral("xmlns:w"), kMainNamespace);
    if (m_source.evenAndOddHeaders)
        xml.writeEmptyElement(QStringLiteral("w:evenAndOddHeaders"));
    writeValue(xml, QStringLiteral("w:defaultTabStop"), layoutTwips(m_source.defaultTabStop));
    // the engine lays out as Word 2013 and later do, for example tables whose border stands on
    // the margin rather than their text
    xml.writeStartElement(QStringLiteral("w:compat"));
    xml.writeEmptyElement(QStringLiteral("w:compatSetting"));
    xml.writeAttribute(QStringLiteral("w:name"), QStringLiteral("compatibilityMode"));
    xml.writeAttribute(QStringLiteral("w:uri"), QStringLiteral("http://schemas.microsoft.com/office/word"));
    xml.writeAttribute(QStringLiteral("w:val"), QStringLiteral("15"));
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

QByteArray TDocxExporter::contentTypesPart() const {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument(QStringLiteral("1.0"), true);
    xml.writeStartElement(QStringLiteral("Types"));
    xml.writeAttribute(QStringLiteral("xmlns"),
                       QStringLiteral("http://schemas.openxmlformats.org/package/2006/content-types"));
    const auto writeDefault = [&xml](const QString& extension, const QString& type) {
        xml.writeEmptyElement(QStringLiteral("Default"));
        xml.writeAttribute(QStringLiteral("Extension"), extension);
        xml.writeAttribute(QStringLiteral("ContentType"), type);
    };
    writeDefault(QStringLiteral("rels"),
                 QStringLiteral("application/vnd.openxmlformats-package.relationships+xml"));
    writeDefault(QStringLiteral("xml"), QStringLiteral("application/xml"));
    writeDefault(QStringLiteral("png"), QStringLiteral("image/png"));
    const QString wordType =
        QStringLiteral("application/vnd.openxmlformats-officedocument.wordprocessingml.");
    const QHash<QString, QString> partTypes = {
        {QStringLiteral("word/document.xml"), wordType + QStringLiteral("document.main+xml")},
        {QStringLiteral("word/styles.xml"), wordType + QStringLiteral("styles+xml")},
        {QStringLiteral("word/settings.xml"), wordType + QStringLiteral("settings+xml")}};
    QStringList names = m_files.keys();
    names.sort();
    for (const QString& name : names) {
        QString type = partTypes.value(name);
        if (name.startsWith(u"word/header"))
            type = wordType + QStringLiteral("header+xml");
        else if (name.startsWith(u"word/footer"))
            type = wordType + QStringLiteral("footer+xml");
        if (type.isEmpty())
            continue;
        xml.writeEmptyElement(QStringLiteral("Override"));
        xml.writeAttribute(QStringLiteral("PartName"), u'/' + name);
        xml.writeAttribute(QStringLiteral("ContentType"), type);
    }
    xml.writeEndDocument();
    return bytes;
}

QByteArray TDocxExporter::relationshipsPart(const QList<TRelationship>& relationships) {
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument(QStringLiteral("1.0"), true);
    xml.writeStartElement(QStringLiteral("Relationships"));
    xml.writeAttribute(QStringLiteral("xmlns"),
                       QStringLiteral("http://schemas.openxmlformats.org/package/2006/relationships"));
    for (const auto& relationship : relationships) {
        xml.writeEmptyElement(QStringLiteral("Relationship"));
        xml.writeAttribute(QStringLiteral("Id"), relationship.id);
        xml.writeAttribute(QStringLiteral("Type"), relationship.type);
        xml.writeAttribute(QStringLiteral("Target"), relationship.target);
    }
    xml.writeEndDocument();
    return bytes;
}

void TDocxExporter::writeFlow(QXmlStreamWriter& xml, const TSubDocument& flow, QTextFrame::iterator it,
                              TPart& part) {
    bool wroteParagraph = false;
    for (; !it.atEnd(); ++it) {
        if (auto* table = qobject_cast<QTextTable*>(it.currentFrame())) {
            writeTable(xml, flow, *table, part);
            wroteParagraph = false;
        } else if (it.currentFrame()) {
            writeFlow(xml, flow, it.currentFrame()->begin(), part);
        } else if (it.currentBlock().isValid() &&
                   !TParagraphSpacing::continues(it.currentBlock().blockFormat())) {
            writeParagraph(xml, flow, it.currentBlock(), part);
            wroteParagraph = true;
        }
    }
    // a cell, header, footer or text box ends with a paragraph
    if (!wroteParagraph)
        xml.writeEmptyElement(QStringLiteral("w:p"));
}

void TDocxExporter::writeParagraph(QXmlStreamWriter& xml, const TSubDocument& flow, const QTextBlock& block,
                                   TPart& part) {
    const QList<QTextBlock> lines = linesOf(block);
    xml.writeStartElement(QStringLiteral("w:p"));
    // a section's properties stand in the properties of its last paragraph
    const TDocSection* closedSection = nullptr;
    for (const QTextBlock& line : lines) {
        if (&flow == &m_source.body() && m_sectionEnds.contains(line.blockNumber()))
            closedSection = m_sectionEnds.value(line.blockNumber());
    }
    writeParagraphProperties(xml, block, lines.back(), closedSection);
    for (const QTextBlock& line : lines) {
        if (line != block) {
            xml.writeStartElement(QStringLiteral("w:r"));
            xml.writeEmptyElement(QStringLiteral("w:br"));
            xml.writeEndElement();
        }
        for (const auto& shape : flow.shapes())
            if (shape->anchor.block() == line) {
                xml.writeStartElement(QStringLiteral("w:r"));
                writeAnchoredShape(xml, *shape, part);
                xml.writeEndElement();
            }
        writeRuns(xml, line, part);
    }
    xml.writeEndElement();
}

void TDocxExporter::writeParagraphProperties(QXmlStreamWriter& xml, const QTextBlock& block,
                                             const QTextBlock& lastLine, const TDocSection* closedSection) {
    const QTextBlockFormat format = block.blockFormat();
    xml.writeStartElement(QStringLiteral("w:pPr"));
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        xml.writeEmptyElement(QStringLiteral("w:pageBreakBefore"));
    writeTabs(xml, format);
    // the spacing as laid out, with what the neighbours' styles leave out already left out
    writeSpacing(xml, format, TParagraphSpacing::effectiveBefore(block),
                 TParagraphSpacing::effectiveAfter(lastLine));
    writeIndents(xml, format);
    writeValue(xml, QStringLiteral("w:jc"), alignmentName(format.alignment()));
    // the mark's format gives an empty paragraph its height
    writeRunProperties(xml, block.charFormat());
    if (closedSection)
        writeSection(xml, *closedSection);
    xml.writeEndElement();
}

void TDocxExporter::writeRuns(QXmlStreamWriter& xml, const QTextBlock& block, TPart& part) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        if (!fragment.isValid())
            continue;
        const QTextCharFormat format = fragment.charFormat();
        xml.writeStartElement(QStringLiteral("w:r"));
        writeRunProperties(xml, format);
        if (format.isImageFormat()) {
            const QTextImageFormat image = format.toImageFormat();
            const QVariant resource =
                block.document()->resource(QTextDocument::ImageResource, QUrl(image.name()));
            const QImage picture = resource.value<QImage>();
            // one replacement character stands for each picture of the fragment
            for (int i = 0; i < fragment.length() && !picture.isNull(); ++i)
                writeInlinePicture(xml, picture, image.width(), image.height(), part);
        } else {
            writeRunContent(xml, fragment.text());
        }
        xml.writeEndElement();
    }
}

void TDocxExporter::writeTable(QXmlStreamWriter& xml, const TSubDocument& flow, QTextTable& table,
                               TPart& part) {
    const QTextTableFormat format = table.format();
    xml.writeStartElement(QStringLiteral("w:tbl"));
    xml.writeStartElement(QStringLiteral("w:tblPr"));
    xml.writeStartElement(QStringLiteral("w:tblW"));
    xml.writeAttribute(QStringLiteral("w:w"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("w:type"), QStringLiteral("auto"));
    xml.writeEndElement();
    writeValue(xml, QStringLiteral("w:jc"), alignmentName(format.alignment()));
    const QString border = format.border() > 0 ? QStringLiteral("single") : QStringLiteral("nil");
    xml.writeStartElement(QStringLiteral("w:tblBorders"));
    for (const auto* side : {"w:top", "w:left", "w:bottom", "w:right", "w:insideH", "w:insideV"}) {
        xml.writeEmptyElement(QLatin1String(side));
        xml.writeAttribute(QStringLiteral("w:val"), border);
        xml.writeAttribute(QStringLiteral("w:sz"), QStringLiteral("4"));
        xml.writeAttribute(QStringLiteral("w:color"), QStringLiteral("000000"));
    }
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("w:tblLayout"));
    xml.writeAttribute(QStringLiteral("w:type"), QStringLiteral("fixed"));
    xml.writeEndElement();
    xml.writeEndElement();

    const auto widths = format.columnWidthConstraints();
    xml.writeStartElement(QStringLiteral("w:tblGrid"));
    for (int column = 0; column < table.columns(); ++column) {
        xml.writeEmptyElement(QStringLiteral("w:gridCol"));
        const double width = column < widths.size() ? widths[column].rawValue() : 0.0;
        xml.writeAttribute(QStringLiteral("w:w"), number(formatToTwips(width)));
    }
    xml.writeEndElement();

    for (int row = 0; row < table.rows(); ++row) {
        xml.writeStartElement(QStringLiteral("w:tr"));
        for (int column = 0; column < table.columns();) {
            const QTextTableCell cell = table.cellAt(row, column);
            const int span = std::max(1, cell.columnSpan());
            double width = 0.0;
            for (int i = column; i < column + span && i < widths.size(); ++i)
                width += widths[i].rawValue();
            xml.writeStartElement(QStringLiteral("w:tc"));
            xml.writeStartElement(QStringLiteral("w:tcPr"));
            xml.writeEmptyElement(QStringLiteral("w:tcW"));
            xml.writeAttribute(QStringLiteral("w:w"), number(formatToTwips(width)));
            xml.writeAttribute(QStringLiteral("w:type"), QStringLiteral("dxa"));
            if (span > 1)
                writeValue(xml, QStringLiteral("w:gridSpan"), QString::number(span));
            const bool continued = cell.row() != row;
            if (cell.rowSpan() > 1)
                writeValue(xml, QStringLiteral("w:vMerge"),
                           continued ? QStringLiteral("continue") : QStringLiteral("restart"));
            xml.writeEndElement();
            if (continued) {
                xml.writeEmptyElement(QStringLiteral("w:p"));
            } else {
                writeFlow(xml, flow, cell.begin(), part);
            }
            xml.writeEndElement();
            column += span;
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void TDocxExporter::writeSection(QXmlStreamWriter& xml, const TDocSection& section) {
    xml.writeStartElement(QStringLiteral("w:sectPr"));
    writeHeaderFooterReferences(xml, section, true);
    writeHeaderFooterReferences(xml, section, false);
    if (!section.startsNewPage)
        writeValue(xml, QStringLiteral("w:type"), QStringLiteral("continuous"));
    xml.writeEmptyElement(QStringLiteral("w:pgSz"));
    xml.writeAttribute(QStringLiteral("w:w"), layoutTwips(section.pageSize.width()));
    xml.writeAttribute(QStringLiteral("w:h"), layoutTwips(section.pageSize.height()));
    if (section.pageSize.width() > section.pageSize.height())
        xml.writeAttribute(QStringLiteral("w:orient"), QStringLiteral("landscape"));
    xml.writeEmptyElement(QStringLiteral("w:pgMar"));
    xml.writeAttribute(QStringLiteral("w:top"), layoutTwips(section.margins.top()));
    xml.writeAttribute(QStringLiteral("w:right"), layoutTwips(section.margins.right()));
    xml.writeAttribute(QStringLiteral("w:bottom"), layoutTwips(section.margins.bottom()));
    xml.writeAttribute(QStringLiteral("w:left"), layoutTwips(section.margins.left()));
    xml.writeAttribute(QStringLiteral("w:header"), layoutTwips(section.headerDistance));
    xml.writeAttribute(QStringLiteral("w:footer"), layoutTwips(section.footerDistance));
    xml.writeAttribute(QStringLiteral("w:gutter"), QStringLiteral("0"));
    if (section.differentFirstPage)
        xml.writeEmptyElement(QStringLiteral("w:titlePg"));
    xml.writeEndElement();
}

void TDocxExporter::writeHeaderFooterReferences(QXmlStreamWriter& xml, const TDocSection& section,
                                                bool isHeader) {
    for (int kind = 0; kind < TDocSection::kKindCount; ++kind) {
        const auto flow = isHeader ? section.header(kind) : section.footer(kind);
        if (!flow)
            continue;
        xml.writeEmptyElement(isHeader ? QStringLiteral("w:headerReference")
                                       : QStringLiteral("w:footerReference"));
        xml.writeAttribute(QStringLiteral("w:type"), kindName(kind));
        xml.writeAttribute(QStringLiteral("r:id"), headerFooterRelationship(*flow, isHeader));
    }
}

QString TDocxExporter::headerFooterRelationship(const TSubDocument& flow, bool isHeader) {
    if (m_headerFooterIds.contains(&flow))
        return m_headerFooterIds.value(&flow);
    const QString fileName = QStringLiteral("%1%2.xml")
                                 .arg(isHeader ? QStringLiteral("header") : QStringLiteral("footer"))
                                 .arg(m_headerFooterIds.size() + 1);
    TPart part;
    part.name = QStringLiteral("word/") + fileName;
    m_files.insert(part.name, headerFooterPart(flow, isHeader, part));
    m_files.insert(QStringLiteral("word/_rels/") + fileName + QStringLiteral(".rels"),
                   relationshipsPart(part.relationships));
    const QString id = m_documentPart.addRelationship(
        isHeader ? QStringLiteral("header") : QStringLiteral("footer"), fileName);
    m_headerFooterIds.insert(&flow, id);
    return id;
}

void TDocxExporter::writeInlinePicture(QXmlStreamWriter& xml, const QImage& picture, double width,
                                       double height, TPart& part) {
    xml.writeStartElement(QStringLiteral("w:drawing"));
    xml.writeStartElement(QStringLiteral("wp:inline"));
    for (const auto* distance : {"distT", "distB", "distL", "distR"})
        xml.writeAttribute(QLatin1String(distance), QStringLiteral("0"));
    writeExtent(xml, QStringLiteral("wp:extent"), formatEmu(width), formatEmu(height));
    writePictureGraphic(xml, picture, width, height, part);
    xml.writeEndElement();
    xml.writeEndElement();
}

void TDocxExporter::writeAnchoredShape(QXmlStreamWriter& xml, const TDocShape& shape, TPart& part) {
    xml.writeStartElement(QStringLiteral("w:drawing"));
    xml.writeStartElement(QStringLiteral("wp:anchor"));
    for (const auto* distance : {"distT", "distB", "distL", "distR"})
        xml.writeAttribute(QLatin1String(distance), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("simplePos"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("relativeHeight"), QString::number(m_drawingId + 1));
    xml.writeAttribute(QStringLiteral("behindDoc"),
                       shape.behindText ? QStringLiteral("1") : QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("locked"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("layoutInCell"), QStringLiteral("1"));
    xml.writeAttribute(QStringLiteral("allowOverlap"), QStringLiteral("1"));
    xml.writeEmptyElement(QStringLiteral("wp:simplePos"));
    xml.writeAttribute(QStringLiteral("x"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("y"), QStringLiteral("0"));
    writeAxis(xml, shape.horizontal, true);
    writeAxis(xml, shape.vertical, false);
    writeExtent(xml, QStringLiteral("wp:extent"), layoutEmu(shape.size.width()),
                layoutEmu(shape.size.height()));
    xml.writeEmptyElement(QStringLiteral("wp:wrapNone"));
    if (shape.hasTextBox())
        writeTextBoxGraphic(xml, shape, part);
    else
        writePictureGraphic(xml, shape.picture, units::toFormat(shape.size.width()),
                            units::toFormat(shape.size.height()), part);
    xml.writeEndElement();
    xml.writeEndElement();
}

void TDocxExporter::writePictureGraphic(QXmlStreamWriter& xml, const QImage& picture, double width,
                                        double height, TPart& part) {
    const QString id = QString::number(++m_drawingId);
    xml.writeEmptyElement(QStringLiteral("wp:docPr"));
    xml.writeAttribute(QStringLiteral("id"), id);
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("Bild ") + id);
    xml.writeStartElement(QStringLiteral("a:graphic"));
    xml.writeStartElement(QStringLiteral("a:graphicData"));
    xml.writeAttribute(QStringLiteral("uri"), kPictureUri);
    xml.writeStartElement(QStringLiteral("pic:pic"));
    xml.writeStartElement(QStringLiteral("pic:nvPicPr"));
    xml.writeEmptyElement(QStringLiteral("pic:cNvPr"));
    xml.writeAttribute(QStringLiteral("id"), id);
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("image") + id + QStringLiteral(".png"));
    xml.writeEmptyElement(QStringLiteral("pic:cNvPicPr"));
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("pic:blipFill"));
    xml.writeEmptyElement(QStringLiteral("a:blip"));
    xml.writeAttribute(QStringLiteral("r:embed"), pictureRelationship(picture, part));
    xml.writeStartElement(QStringLiteral("a:stretch"));
    xml.writeEmptyElement(QStringLiteral("a:fillRect"));
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("pic:spPr"));
    writeRectangle(xml, formatEmu(width), formatEmu(height));
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
}

void TDocxExporter::writeTextBoxGraphic(QXmlStreamWriter& xml, const TDocShape& shape, TPart& part) {
    const QString id = QString::number(++m_drawingId);
    xml.writeEmptyElement(QStringLiteral("wp:docPr"));
    xml.writeAttribute(QStringLiteral("id"), id);
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("Textfeld ") + id);
    xml.writeStartElement(QStringLiteral("a:graphic"));
    xml.writeStartElement(QStringLiteral("a:graphicData"));
    xml.writeAttribute(QStringLiteral("uri"), kShapeUri);
    xml.writeStartElement(QStringLiteral("wps:wsp"));
    xml.writeEmptyElement(QStringLiteral("wps:cNvSpPr"));
    xml.writeAttribute(QStringLiteral("txBox"), QStringLiteral("1"));
    xml.writeStartElement(QStringLiteral("wps:spPr"));
    writeRectangle(xml, layoutEmu(shape.size.width()), layoutEmu(shape.size.height()));
    if (shape.fill.style() == Qt::NoBrush)
        xml.writeEmptyElement(QStringLiteral("a:noFill"));
    else
        writeColor(xml, shape.fill.color());
    xml.writeStartElement(QStringLiteral("a:ln"));
    if (shape.border.style() == Qt::NoPen) {
        xml.writeEmptyElement(QStringLiteral("a:noFill"));
    } else {
        xml.writeAttribute(QStringLiteral("w"), layoutEmu(shape.border.widthF()));
        writeColor(xml, shape.border.color());
    }
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("wps:txbx"));
    xml.writeStartElement(QStringLiteral("w:txbxContent"));
    writeFlow(xml, *shape.textBox, shape.textBox->text().rootFrame()->begin(), part);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEmptyElement(QStringLiteral("wps:bodyPr"));
    xml.writeAttribute(QStringLiteral("lIns"), layoutEmu(shape.textInsets.left()));
    xml.writeAttribute(QStringLiteral("tIns"), layoutEmu(shape.textInsets.top()));
    xml.writeAttribute(QStringLiteral("rIns"), layoutEmu(shape.textInsets.right()));
    xml.writeAttribute(QStringLiteral("bIns"), layoutEmu(shape.textInsets.bottom()));
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
}

QString TDocxExporter::pictureRelationship(const QImage& picture, TPart& part) {
    QString fileName = m_media.value(picture.cacheKey());
    if (fileName.isEmpty()) {
        fileName = QStringLiteral("media/image%1.png").arg(m_media.size() + 1);
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        m_files.insert(QStringLiteral("word/") + fileName, png);
        m_media.insert(picture.cacheKey(), fileName);
    }
    for (const auto& relationship : part.relationships)
        if (relationship.target == fileName)
            return relationship.id;
    return part.addRelationship(QStringLiteral("image"), fileName);
}

} // namespace engine
