#include "TDocxImporter.h"

#include "DebugLog.h"
#include "DocUnits.h"
#include "EDocumentError.h"
#include "OpenXmlReading.h"
#include "TDocument.h"
#include "TParagraphSpacing.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <QXmlStreamReader>
#include <algorithm>

namespace engine {

// Where text goes while a part is read: the sub-document, its cursor, and the part whose
// relationships name pictures. A fresh block is taken over by the next paragraph.
struct TDocxImporter::TFlow {
    TSubDocument& document;
    QTextCursor cursor;
    TDocxPackage::TRelationships relationships;
    bool reuseBlock = true;
};

// The paragraph being read: its style, the formats of its block, and whether it has started.
struct TDocxImporter::TParagraph {
    QString style;
    QTextBlockFormat blockFormat;
    QTextCharFormat markFormat;
    bool started = false;
    // its line breaks start blocks that continue it
    bool breaksIntoBlocks = false;
};

// A section as written: its geometry and the parts of its headers and footers.
struct TDocxImporter::TSectionSource {
    TDocSection section;
    QHash<int, QString> headerParts;
    QHash<int, QString> footerParts;
};

namespace {

const QString kTextSeparator = QString(QChar(0x2028));

// Tables in tables, text boxes in cells: real documents nest a few levels; a file nested
// deeper than this is broken or hostile, and its inner part is left out.
constexpr int kMaxNesting = 48;
// Qt lays a nested table out once per level above it, so deep nesting costs exponential time
constexpr int kMaxTableNesting = 6;

// counts the nesting while an element is read
class TNesting {
public:
    explicit TNesting(int& depth)
        : m_depth(++depth) {}
    ~TNesting() { --m_depth; }
    TNesting(const TNesting&) = delete;
    TNesting& operator=(const TNesting&) = delete;

private:
    int& m_depth;
};

// Word's space between a cell's border and its text, left and right
constexpr double kCellPaddingTwips = 108;

// the alternatives of mc:AlternateContent that the engine reads in the Choice branch
bool canReadChoice(const QString& required) {
    static const QSet<QString> known = {QStringLiteral("wps"), QStringLiteral("wp14"),
                                        QStringLiteral("w14"), QStringLiteral("w15"),
                                        QStringLiteral("a14"), QStringLiteral("w16se")};
    const auto prefixes = required.split(u' ', Qt::SkipEmptyParts);
    for (const QString& prefix : prefixes) {
        if (!known.contains(prefix))
            return false;
    }
    return true;
}

int headerFooterKind(const QString& type) {
    if (type == u"first")
        return TDocSection::First;
    if (type == u"even")
        return TDocSection::Even;
    return TDocSection::Primary;
}

TDocShape::TRelative relativeOf(const QString& value, bool horizontal) {
    if (value == u"page")
        return TDocShape::TRelative::Page;
    if (value == u"leftMargin")
        return TDocShape::TRelative::LeftMargin;
    if (value == u"rightMargin")
        return TDocShape::TRelative::RightMargin;
    if (value == u"topMargin")
        return TDocShape::TRelative::TopMargin;
    if (value == u"bottomMargin")
        return TDocShape::TRelative::BottomMargin;
    if (!horizontal && (value == u"paragraph" || value == u"line" || value == u"text"))
        return TDocShape::TRelative::Paragraph;
    return TDocShape::TRelative::Margin;
}

TDocShape::TAlign alignOf(const QString& value) {
    if (value == u"center")
        return TDocShape::TAlign::Center;
    if (value == u"right" || value == u"bottom" || value == u"outside")
        return TDocShape::TAlign::End;
    return TDocShape::TAlign::Start;
}

QColor drawingColor(QXmlStreamReader& xml) {
    QColor color(Qt::black);
    while (openxml::nextChild(xml)) {
        const QString value = openxml::attribute(xml, u"val");
        if (xml.name() == u"srgbClr")
            color = QColor(QString(u'#' + value));
        else if (xml.name() == u"schemeClr")
            color = (value == u"lt1" || value == u"bg1") ? QColor(Qt::white) : QColor(Qt::black);
        else if (xml.name() == u"prstClr")
            color = QColor(value);
        xml.skipCurrentElement();
    }
    return color.isValid() ? color : QColor(Qt::black);
}

// a length of a VML style ("12pt", "2cm", "0.5in", "30px") in layout units
double cssLength(const QString& text) {
    static const QList<std::pair<QString, double>> unitsPerInch = {{QStringLiteral("pt"), 72.0},
                                                                   {QStringLiteral("in"), 1.0},
                                                                   {QStringLiteral("cm"), 2.54},
                                                                   {QStringLiteral("mm"), 25.4},
                                                                   {QStringLiteral("px"), 96.0}};
    const QString trimmed = text.trimmed();
    for (const auto& [unit, perInch] : unitsPerInch) {
        if (trimmed.endsWith(unit))
            return trimmed.chopped(2).toDouble() / perInch * units::kLayoutDpi;
    }
    return trimmed.toDouble() / 96.0 * units::kLayoutDpi;
}

QHash<QString, QString> cssProperties(const QString& style) {
    QHash<QString, QString> result;
    const auto declarations = style.split(u';', Qt::SkipEmptyParts);
    for (const QString& declaration : declarations) {
        const int colon = declaration.indexOf(u':');
        if (colon > 0)
            result.insert(declaration.left(colon).trimmed(), declaration.mid(colon + 1).trimmed());
    }
    return result;
}

// Word's space between a text box's edge and its text: a tenth of an inch left and right, a
// twentieth above and below
QMarginsF defaultTextInsets() {
    return QMarginsF(units::fromEmu(91440), units::fromEmu(45720), units::fromEmu(91440),
                     units::fromEmu(45720));
}

// an invisible block: a table at the start of a flow leaves one in front of it
void collapseBlock(QTextCursor& cursor) {
    QTextBlockFormat format;
    format.setLineHeight(0, QTextBlockFormat::FixedHeight);
    cursor.setBlockFormat(format);
    QTextCharFormat tiny;
    tiny.setFontPointSize(1);
    cursor.mergeBlockCharFormat(tiny);
}

} // namespace

TDocxImporter::TDocxImporter(TDocument& target)
    : m_target(target) {}

TDocxImporter::~TDocxImporter() = default;

bool TDocxImporter::leaveOutTooDeep(QXmlStreamReader& xml) {
    if (m_nesting <= kMaxNesting)
        return false;
    report(QStringLiteral("content nested too deeply"));
    xml.skipCurrentElement();
    return true;
}

void TDocxImporter::report(const QString& what) {
    if (m_reported.contains(what))
        return;
    m_reported.insert(what);
    norvik::DebugLog(1, QStringLiteral("Dokumentvorlage: nicht dargestellt: ") + what);
}

std::unique_ptr<TSubDocument> TDocxImporter::newSubDocument() const {
    auto document = std::make_unique<TSubDocument>();
    document->setStyleFontSizes(m_characterStyleSizes);
    return document;
}

void TDocxImporter::import(const QByteArray& docx) {
    m_package = std::make_unique<TDocxPackage>(docx);
    QString documentPart = m_package->targetOfType(QString(), QStringLiteral("/officeDocument"));
    if (documentPart.isEmpty())
        documentPart = QStringLiteral("word/document.xml");
    if (!m_package->contains(documentPart))
        throw EDocumentError(QStringLiteral("Das DOCX-Dokument enthält keinen Text."));

    m_styles.readTheme(m_package->part(m_package->targetOfType(documentPart, QStringLiteral("/theme"))));
    m_styles.readStyles(m_package->part(m_package->targetOfType(documentPart, QStringLiteral("/styles"))));
    m_characterStyleSizes = m_styles.characterStyleSizes();
    readSettings(documentPart);

    m_target.m_body = newSubDocument();
    TFlow body{*m_target.m_body, QTextCursor(&m_target.m_body->text()),
               m_package->relationships(documentPart)};
    QXmlStreamReader xml(m_package->part(documentPart));
    if (openxml::nextChild(xml)) {
        while (openxml::nextChild(xml)) {
            if (xml.name() == u"body")
                readBlockContent(xml, body);
            else
                xml.skipCurrentElement();
        }
    }
    if (xml.hasError())
        report(QStringLiteral("the rest of a damaged document part (") + xml.errorString() + u')');
    buildSections(m_sections, body);
}

void TDocxImporter::readSettings(const QString& documentPart) {
    QXmlStreamReader xml(m_package->part(m_package->targetOfType(documentPart, QStringLiteral("/settings"))));
    while (!xml.atEnd()) {
        xml.readNext();
        if (openxml::isStart(xml, u"evenAndOddHeaders"))
            m_target.evenAndOddHeaders = openxml::onOff(xml);
        else if (openxml::isStart(xml, u"defaultTabStop")) {
            const double twips = openxml::numberAttribute(xml, u"val").value_or(0.0);
            // a stop every few twips would make a tab an endless run of stops
            if (twips >= 20)
                m_target.defaultTabStop = units::fromTwips(twips);
        }
    }
}

void TDocxImporter::readBlockContent(QXmlStreamReader& xml, TFlow& flow) {
    while (openxml::nextChild(xml))
        readBlockElement(xml, flow);
}

void TDocxImporter::readBlockElement(QXmlStreamReader& xml, TFlow& flow) {
    const TNesting nesting(m_nesting);
    if (leaveOutTooDeep(xml))
        return;
    const auto name = xml.name();
    if (name == u"p") {
        readParagraph(xml, flow);
    } else if (name == u"tbl") {
        readTable(xml, flow);
    } else if (name == u"sectPr") {
        m_sections.push_back(readSection(xml));
    } else if (name == u"sdt") {
        while (openxml::nextChild(xml)) {
            if (xml.name() == u"sdtContent")
                readBlockContent(xml, flow);
            else
                xml.skipCurrentElement();
        }
    } else if (name == u"customXml" || name == u"ins") {
        readBlockContent(xml, flow);
    } else if (name == u"AlternateContent") {
        readAlternateContent(xml, [&](QXmlStreamReader& r) { readBlockElement(r, flow); });
    } else {
        if (name != u"bookmarkStart" && name != u"bookmarkEnd" && name != u"proofErr" && name != u"del")
            report(QStringLiteral("the element ") + xml.qualifiedName().toString());
        xml.skipCurrentElement();
    }
}

void TDocxImporter::readParagraph(QXmlStreamReader& xml, TFlow& flow) {
    TParagraph paragraph;
    TParagraphProperties direct;
    TRunProperties markRun;
    std::optional<TSectionSource> section;
    const auto begin = [&] {
        paragraph.style = direct.style.value_or(QString());
        TParagraphProperties resolved = m_styles.paragraphBase(paragraph.style);
        resolved.overrideWith(direct);
        paragraph.blockFormat = TDocStyleSheet::blockFormat(resolved);
        const QList<QTextOption::Tab> tabs = paragraph.blockFormat.tabPositions();
        paragraph.breaksIntoBlocks = std::any_of(tabs.cbegin(), tabs.cend(), [](const QTextOption::Tab& tab) {
            return tab.type != QTextOption::LeftTab;
        });
        TParagraphSpacing::setStyle(paragraph.blockFormat, paragraph.style.isEmpty()
                                                               ? m_styles.defaultParagraphStyle()
                                                               : paragraph.style);
        TRunProperties mark = m_styles.runBase(paragraph.style, QString());
        mark.overrideWith(markRun);
        paragraph.markFormat = m_styles.charFormat(mark);
        startParagraph(flow, paragraph);
    };
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"pPr" && !paragraph.started) {
            direct = TParagraphProperties::read(xml, [&](QXmlStreamReader& r) {
                if (r.name() == u"rPr") {
                    markRun = TRunProperties::read(r);
                    return;
                }
                if (r.name() == u"sectPr") {
                    section = readSection(r);
                    return;
                }
                report(QStringLiteral("list numbering"));
                r.skipCurrentElement();
            });
            continue;
        }
        if (!paragraph.started)
            begin();
        readInlineElement(xml, flow, paragraph);
    }
    if (!paragraph.started)
        begin();
    flow.reuseBlock = false;
    if (section) {
        section->section.lastParagraph = flow.cursor;
        // the paragraphs that follow are inserted behind it
        section->section.lastParagraph.setKeepPositionOnInsert(true);
        m_sections.push_back(*section);
    }
}

void TDocxImporter::startParagraph(TFlow& flow, TParagraph& paragraph) {
    paragraph.started = true;
    if (flow.reuseBlock) {
        flow.cursor.setBlockFormat(paragraph.blockFormat);
        // merged: the first block of a table cell carries the cell's own format there
        flow.cursor.mergeBlockCharFormat(paragraph.markFormat);
        flow.reuseBlock = false;
    } else {
        flow.cursor.insertBlock(paragraph.blockFormat, paragraph.markFormat);
    }
}

void TDocxImporter::readInlineContent(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph) {
    while (openxml::nextChild(xml))
        readInlineElement(xml, flow, paragraph);
}

void TDocxImporter::readInlineElement(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph) {
    static const QSet<QString> containers = {
        QStringLiteral("hyperlink"), QStringLiteral("ins"),       QStringLiteral("smartTag"),
        QStringLiteral("customXml"), QStringLiteral("fldSimple"), QStringLiteral("moveTo"),
        QStringLiteral("dir"),       QStringLiteral("bdo"),       QStringLiteral("sdtContent")};
    static const QSet<QString> ignored = {
        QStringLiteral("bookmarkStart"),   QStringLiteral("bookmarkEnd"), QStringLiteral("proofErr"),
        QStringLiteral("permStart"),       QStringLiteral("permEnd"),     QStringLiteral("commentRangeStart"),
        QStringLiteral("commentRangeEnd"), QStringLiteral("del"),         QStringLiteral("moveFrom"),
        QStringLiteral("sdtPr"),           QStringLiteral("sdtEndPr"),    QStringLiteral("pPr")};
    const TNesting nesting(m_nesting);
    if (leaveOutTooDeep(xml))
        return;
    const QString name = xml.name().toString();
    if (name == u"r") {
        readRun(xml, flow, paragraph);
    } else if (containers.contains(name) || name == u"sdt") {
        readInlineContent(xml, flow, paragraph);
    } else if (name == u"AlternateContent") {
        readAlternateContent(xml, [&](QXmlStreamReader& r) { readInlineElement(r, flow, paragraph); });
    } else {
        if (!ignored.contains(name))
            report(QStringLiteral("the element ") + xml.qualifiedName().toString());
        xml.skipCurrentElement();
    }
}

void TDocxImporter::readRun(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph) {
    TRunProperties direct;
    QTextCharFormat format;
    bool formatReady = false;
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"rPr" && !formatReady) {
            direct = TRunProperties::read(xml);
            continue;
        }
        if (!formatReady) {
            TRunProperties resolved =
                m_styles.runBase(paragraph.style, direct.characterStyle.value_or(QString()));
            resolved.overrideWith(direct);
            format = m_styles.charFormat(resolved);
            formatReady = true;
        }
        readRunElement(xml, flow, paragraph, format);
    }
}

void TDocxImporter::readRunElement(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph,
                                   const QTextCharFormat& format) {
    static const QHash<QString, QString> characters = {
        {QStringLiteral("tab"), QStringLiteral("\t")},
        {QStringLiteral("ptab"), QStringLiteral("\t")},
        {QStringLiteral("cr"), kTextSeparator},
        {QStringLiteral("noBreakHyphen"), QString(QChar(0x2011))},
        {QStringLiteral("softHyphen"), QString(QChar(0x00AD))}};
    static const QSet<QString> ignored = {QStringLiteral("lastRenderedPageBreak"),
                                          QStringLiteral("annotationRef"), QStringLiteral("instrText"),
                                          QStringLiteral("delText")};
    const QString name = xml.name().toString();
    if (name == u"t") {
        insertText(flow, openxml::elementText(xml), format);
        return;
    }
    if (characters.contains(name)) {
        insertText(flow, characters.value(name), format);
    } else if (name == u"br") {
        readBreak(xml, flow, paragraph, format);
        return;
    } else if (name == u"sym") {
        const QString code = openxml::attribute(xml, u"char");
        QTextCharFormat symbol = format;
        symbol.setFontFamilies({openxml::attribute(xml, u"font")});
        insertText(flow, QString(QChar(code.toUShort(nullptr, 16))), symbol);
    } else if (name == u"fldChar") {
        readFieldChar(xml);
        return;
    } else if (name == u"drawing") {
        readDrawing(xml, flow);
        return;
    } else if (name == u"pict") {
        readVml(xml, flow);
        return;
    } else if (name == u"AlternateContent") {
        readAlternateContent(xml, [&](QXmlStreamReader& r) { readRunElement(r, flow, paragraph, format); });
        return;
    } else if (!ignored.contains(name)) {
        report(QStringLiteral("the element ") + xml.qualifiedName().toString());
    }
    xml.skipCurrentElement();
}

void TDocxImporter::readBreak(QXmlStreamReader& xml, TFlow& flow, TParagraph& paragraph,
                              const QTextCharFormat& format) {
    const QString type = openxml::attribute(xml, u"type");
    xml.skipCurrentElement();
    QTextBlockFormat next = paragraph.blockFormat;
    if (type == u"page") {
        next.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        next.setTopMargin(0);
        TParagraphSpacing::setSpaceBefore(next, 0.0);
    } else if (paragraph.breaksIntoBlocks) {
        TParagraphSpacing::setContinues(next);
    } else {
        insertText(flow, kTextSeparator, format);
        return;
    }
    flow.cursor.insertBlock(next, paragraph.markFormat);
}

void TDocxImporter::readFieldChar(QXmlStreamReader& xml) {
    const QString type = openxml::attribute(xml, u"fldCharType");
    xml.skipCurrentElement();
    if (type == u"begin")
        m_fieldInstruction.push_back(true);
    else if (type == u"separate" && !m_fieldInstruction.empty())
        m_fieldInstruction.back() = false;
    else if (type == u"end" && !m_fieldInstruction.empty())
        m_fieldInstruction.pop_back();
}

void TDocxImporter::insertText(TFlow& flow, const QString& text, const QTextCharFormat& format) {
    // the instruction of a field is hidden; its last result stands in the text
    for (bool instruction : m_fieldInstruction) {
        if (instruction)
            return;
    }
    flow.cursor.insertText(text, format);
}

void TDocxImporter::readAlternateContent(QXmlStreamReader& xml,
                                         const std::function<void(QXmlStreamReader&)>& element) {
    const TNesting nesting(m_nesting);
    if (leaveOutTooDeep(xml))
        return;
    bool taken = false;
    while (openxml::nextChild(xml)) {
        const bool choice = xml.name() == u"Choice";
        const bool fallback = xml.name() == u"Fallback";
        if (!taken && ((choice && canReadChoice(openxml::attribute(xml, u"Requires"))) || fallback)) {
            taken = true;
            while (openxml::nextChild(xml))
                element(xml);
        } else {
            xml.skipCurrentElement();
        }
    }
}

void TDocxImporter::readDrawing(QXmlStreamReader& xml, TFlow& flow) {
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"anchor" || xml.name() == u"inline")
            readAnchor(xml, flow, xml.name() == u"inline");
        else
            xml.skipCurrentElement();
    }
}

void TDocxImporter::readAnchor(QXmlStreamReader& xml, TFlow& flow, bool isInline) {
    auto shape = std::make_shared<TDocShape>();
    shape->behindText = openxml::attribute(xml, u"behindDoc") == u"1";
    shape->textInsets = defaultTextInsets();
    const bool simplePosition = openxml::attribute(xml, u"simplePos") == u"1";
    if (isInline)
        shape->vertical.relative = TDocShape::TRelative::Paragraph;
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"simplePos" && simplePosition) {
            shape->horizontal = {TDocShape::TRelative::Page, TDocShape::TAlign::Offset,
                                 units::fromEmu(openxml::numberAttribute(xml, u"x").value_or(0))};
            shape->vertical = {TDocShape::TRelative::Page, TDocShape::TAlign::Offset,
                               units::fromEmu(openxml::numberAttribute(xml, u"y").value_or(0))};
            xml.skipCurrentElement();
        } else if ((name == u"positionH" || name == u"positionV") && !simplePosition) {
            readAnchorPosition(xml, *shape, name == u"positionH");
        } else if (name == u"extent") {
            shape->size = QSizeF(units::fromEmu(openxml::numberAttribute(xml, u"cx").value_or(0)),
                                 units::fromEmu(openxml::numberAttribute(xml, u"cy").value_or(0)));
            xml.skipCurrentElement();
        } else if (name == u"graphic") {
            readGraphic(xml, flow, *shape);
        } else {
            xml.skipCurrentElement();
        }
    }
    placeShape(flow, shape, isInline);
}

void TDocxImporter::readAnchorPosition(QXmlStreamReader& xml, TDocShape& shape, bool horizontal) {
    TDocShape::TAxis axis;
    axis.relative = relativeOf(openxml::attribute(xml, u"relativeFrom"), horizontal);
    while (openxml::nextChild(xml)) {
        const QString text = openxml::elementText(xml);
        if (xml.name() == u"posOffset") {
            axis.align = TDocShape::TAlign::Offset;
            axis.offset = units::fromEmu(text.toDouble());
        } else if (xml.name() == u"align") {
            axis.align = alignOf(text);
        }
    }
    (horizontal ? shape.horizontal : shape.vertical) = axis;
}

void TDocxImporter::readGraphic(QXmlStreamReader& xml, TFlow& flow, TDocShape& shape) {
    // Walks the whole graphic: a text box or picture may sit in a group or a canvas too.
    int depth = 1;
    bool styledLine = false;
    bool explicitLine = false;
    while (depth > 0 && !xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement()) {
            --depth;
            continue;
        }
        if (!xml.isStartElement())
            continue;
        const auto name = xml.name();
        if (name == u"txbxContent") {
            shape.textBox = readTextBox(xml, flow);
        } else if (name == u"blip") {
            shape.picture = image(flow, openxml::attribute(xml, u"embed"));
            xml.skipCurrentElement();
        } else if (name == u"ln") {
            explicitLine = true;
            readLine(xml, shape);
        } else if (name == u"solidFill") {
            shape.fill = drawingColor(xml);
        } else if (name == u"lnRef") {
            styledLine = openxml::attribute(xml, u"idx") != u"0";
            xml.skipCurrentElement();
        } else if (name == u"bodyPr") {
            shape.textInsets =
                QMarginsF(units::fromEmu(openxml::numberAttribute(xml, u"lIns").value_or(91440)),
                          units::fromEmu(openxml::numberAttribute(xml, u"tIns").value_or(45720)),
                          units::fromEmu(openxml::numberAttribute(xml, u"rIns").value_or(91440)),
                          units::fromEmu(openxml::numberAttribute(xml, u"bIns").value_or(45720)));
            xml.skipCurrentElement();
        } else if (name == u"chart" || name == u"relIds") {
            report(QStringLiteral("a chart or diagram"));
            xml.skipCurrentElement();
        } else {
            if (name == u"wgp" || name == u"grpSp")
                report(QStringLiteral("the grouping of shapes"));
            ++depth;
        }
    }
    if (!explicitLine && styledLine)
        shape.border = QPen(Qt::black, units::fromEmu(12700));
}

void TDocxImporter::readLine(QXmlStreamReader& xml, TDocShape& shape) {
    const double width = units::fromEmu(openxml::numberAttribute(xml, u"w").value_or(9525));
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"solidFill")
            shape.border = QPen(drawingColor(xml), width);
        else
            xml.skipCurrentElement();
    }
}

std::shared_ptr<TSubDocument> TDocxImporter::readTextBox(QXmlStreamReader& xml, const TFlow& flow) {
    std::shared_ptr<TSubDocument> box = newSubDocument();
    TFlow boxFlow{*box, QTextCursor(&box->text()), flow.relationships};
    readBlockContent(xml, boxFlow);
    return box;
}

QImage TDocxImporter::image(const TFlow& flow, const QString& relationshipId) {
    const auto relationship = flow.relationships.value(relationshipId);
    const QImage picture = QImage::fromData(m_package->part(relationship.target));
    if (picture.isNull())
        report(QStringLiteral("the picture ") + relationship.target);
    return picture;
}

void TDocxImporter::placeShape(TFlow& flow, const std::shared_ptr<TDocShape>& shape, bool isInline) {
    if (isInline && !shape->hasTextBox()) {
        if (!shape->picture.isNull())
            insertInlinePicture(flow, shape->picture, shape->size);
        return;
    }
    if (!shape->hasTextBox() && shape->picture.isNull())
        return;
    shape->anchor = flow.cursor;
    // the text that follows in the paragraph goes behind the anchor
    shape->anchor.setKeepPositionOnInsert(true);
    flow.document.addShape(shape);
}

void TDocxImporter::insertInlinePicture(TFlow& flow, const QImage& picture, const QSizeF& size) {
    const QString name = QStringLiteral("docx-image-%1").arg(++m_imageCount);
    flow.document.text().addResource(QTextDocument::ImageResource, QUrl(name), picture);
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(units::toFormat(size.width()));
    format.setHeight(units::toFormat(size.height()));
    flow.cursor.insertImage(format);
}

void TDocxImporter::readVml(QXmlStreamReader& xml, TFlow& flow) {
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"shape" || name == u"rect" || name == u"roundrect")
            readVmlShape(xml, flow);
        else {
            if (name != u"shapetype")
                report(QStringLiteral("the VML element ") + xml.qualifiedName().toString());
            xml.skipCurrentElement();
        }
    }
}

void TDocxImporter::readVmlShape(QXmlStreamReader& xml, TFlow& flow) {
    auto shape = std::make_shared<TDocShape>();
    const auto style = cssProperties(openxml::attribute(xml, u"style"));
    const bool isInline = style.value(QStringLiteral("position")) != u"absolute";
    shape->size = QSizeF(cssLength(style.value(QStringLiteral("width"))),
                         cssLength(style.value(QStringLiteral("height"))));
    shape->horizontal = {relativeOf(style.value(QStringLiteral("mso-position-horizontal-relative")), true),
                         TDocShape::TAlign::Offset, cssLength(style.value(QStringLiteral("margin-left")))};
    shape->vertical = {
        relativeOf(style.value(QStringLiteral("mso-position-vertical-relative"), QStringLiteral("paragraph")),
                   false),
        TDocShape::TAlign::Offset, cssLength(style.value(QStringLiteral("margin-top")))};
    shape->behindText = style.value(QStringLiteral("z-index")).startsWith(u'-');
    shape->textInsets = defaultTextInsets();
    if (openxml::attribute(xml, u"stroked") != u"f")
        shape->border = QPen(Qt::black, units::fromPoints(0.75));
    if (openxml::attribute(xml, u"filled") != u"f")
        shape->fill = QColor(Qt::white);
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"textbox") {
            while (openxml::nextChild(xml)) {
                if (xml.name() == u"txbxContent")
                    shape->textBox = readTextBox(xml, flow);
                else
                    xml.skipCurrentElement();
            }
        } else if (xml.name() == u"imagedata") {
            shape->picture = image(flow, openxml::attribute(xml, u"id"));
            xml.skipCurrentElement();
        } else {
            xml.skipCurrentElement();
        }
    }
    placeShape(flow, shape, isInline);
}

// A table while it is read: its properties, the Qt table once the first row comes, and the
// vertically merged cells, which are merged when the table is complete.
struct TDocxImporter::TTable {
    QString style;
    std::optional<bool> borders;
    Qt::Alignment alignment = Qt::AlignLeft;
    QList<double> grid;
    QTextTable* table = nullptr;
    int row = -1;
    // column of an open vertical merge -> the row where it started
    QHash<int, int> mergeStarts;
    // row, column, number of rows
    std::vector<std::tuple<int, int, int>> verticalMerges;

    void closeMerge(int column, int lastRow) {
        const int start = mergeStarts.take(column);
        if (lastRow > start)
            verticalMerges.emplace_back(start, column, lastRow - start + 1);
    }
};

void TDocxImporter::readTable(QXmlStreamReader& xml, TFlow& flow) {
    const TNesting tables(m_tableNesting);
    if (m_tableNesting > kMaxTableNesting) {
        report(QStringLiteral("tables nested too deeply"));
        xml.skipCurrentElement();
        return;
    }
    TTable table;
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"tblPr") {
            readTableProperties(xml, table);
        } else if (name == u"tblGrid") {
            while (openxml::nextChild(xml)) {
                table.grid.append(units::fromTwips(openxml::numberAttribute(xml, u"w").value_or(0)));
                xml.skipCurrentElement();
            }
        } else if (name == u"tr") {
            readTableRow(xml, flow, table);
        } else {
            xml.skipCurrentElement();
        }
    }
    if (!table.table)
        return;
    for (auto it = table.mergeStarts.cbegin(); it != table.mergeStarts.cend(); ++it) {
        if (table.row > it.value())
            table.verticalMerges.emplace_back(it.value(), it.key(), table.row - it.value() + 1);
    }
    for (const auto& [startRow, column, rows] : table.verticalMerges) {
        const QTextTableCell cell = table.table->cellAt(startRow, column);
        table.table->mergeCells(startRow, column, rows, cell.columnSpan());
    }
    flow.cursor.setPosition(table.table->lastPosition() + 1);
    flow.reuseBlock = true;
}

void TDocxImporter::readTableProperties(QXmlStreamReader& xml, TTable& table) {
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"tblStyle") {
            table.style = openxml::attribute(xml, u"val");
        } else if (name == u"jc") {
            const QString value = openxml::attribute(xml, u"val");
            table.alignment = value == u"center"                     ? Qt::AlignHCenter
                              : value == u"right" || value == u"end" ? Qt::AlignRight
                                                                     : Qt::AlignLeft;
        } else if (name == u"tblBorders") {
            table.borders = false;
            while (openxml::nextChild(xml)) {
                const QString value = openxml::attribute(xml, u"val");
                table.borders = *table.borders || (!value.isEmpty() && value != u"nil" && value != u"none");
                xml.skipCurrentElement();
            }
            continue;
        }
        xml.skipCurrentElement();
    }
}

void TDocxImporter::createTable(TFlow& flow, TTable& table) {
    if (table.grid.isEmpty())
        table.grid.append(flow.document.width() > 0 ? flow.document.width() : units::fromTwips(9000));
    const bool borders = table.borders.value_or(m_styles.tableStyleHasBorders(table.style));
    QTextTableFormat format;
    format.setBorderCollapse(true);
    // Qt draws no collapsed border thinner than one of its pixels (3/4 point); Word's usual
    // half point thus becomes that
    format.setBorder(borders ? 1.0 : 0.0);
    format.setBorderBrush(Qt::black);
    format.setBorderStyle(borders ? QTextFrameFormat::BorderStyle_Solid : QTextFrameFormat::BorderStyle_None);
    format.setCellSpacing(0);
    format.setCellPadding(0);
    format.setAlignment(table.alignment);
    QList<QTextLength> widths;
    for (double width : table.grid)
        widths.append(QTextLength(QTextLength::FixedLength, units::toFormat(width)));
    format.setColumnWidthConstraints(widths);
    if (flow.reuseBlock)
        collapseBlock(flow.cursor);
    table.table = flow.cursor.insertTable(1, int(table.grid.size()), format);
}

void TDocxImporter::readTableRow(QXmlStreamReader& xml, TFlow& flow, TTable& table) {
    if (table.table)
        table.table->appendRows(1);
    else
        createTable(flow, table);
    ++table.row;
    int column = 0;
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"tc")
            column += readTableCell(xml, flow, table, column);
        else
            xml.skipCurrentElement();
    }
}

int TDocxImporter::readTableCell(QXmlStreamReader& xml, const TFlow& flow, TTable& table, int column) {
    int span = 1;
    std::optional<QString> verticalMerge;
    std::optional<TFlow> cellFlow;
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"tcPr" && !cellFlow) {
            while (openxml::nextChild(xml)) {
                if (xml.name() == u"gridSpan")
                    span = qMax(1, int(openxml::numberAttribute(xml, u"val").value_or(1)));
                else if (xml.name() == u"vMerge")
                    verticalMerge = openxml::attribute(xml, u"val");
                xml.skipCurrentElement();
            }
            continue;
        }
        if (!cellFlow)
            cellFlow.emplace(TFlow{flow.document, prepareCell(table, column, span), flow.relationships});
        // a continued cell of a vertical merge shows nothing of its own
        if (verticalMerge && *verticalMerge != u"restart")
            xml.skipCurrentElement();
        else
            readBlockElement(xml, *cellFlow);
    }
    if (!cellFlow)
        prepareCell(table, column, span);
    const bool continues = verticalMerge && *verticalMerge != u"restart";
    if (!continues && table.mergeStarts.contains(column))
        table.closeMerge(column, table.row - 1);
    if (verticalMerge && !continues)
        table.mergeStarts.insert(column, table.row);
    return span;
}

QTextCursor TDocxImporter::prepareCell(TTable& table, int column, int span) {
    if (column + span > table.table->columns())
        table.table->appendColumns(column + span - table.table->columns());
    QTextTableCell cell = table.table->cellAt(table.row, column);
    QTextTableCellFormat format = cell.format().toTableCellFormat();
    format.setLeftPadding(units::toFormat(units::fromTwips(kCellPaddingTwips)));
    format.setRightPadding(units::toFormat(units::fromTwips(kCellPaddingTwips)));
    cell.setFormat(format);
    if (span > 1) {
        table.table->mergeCells(table.row, column, 1, span);
        cell = table.table->cellAt(table.row, column);
    }
    return cell.firstCursorPosition();
}

TDocxImporter::TSectionSource TDocxImporter::readSection(QXmlStreamReader& xml) {
    TSectionSource source;
    TDocSection& section = source.section;
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"headerReference" || name == u"footerReference") {
            const int kind = headerFooterKind(openxml::attribute(xml, u"type"));
            const QString id = openxml::attribute(xml, u"id");
            (name == u"headerReference" ? source.headerParts : source.footerParts).insert(kind, id);
        } else if (name == u"pgSz") {
            section.pageSize = QSizeF(units::fromTwips(openxml::numberAttribute(xml, u"w").value_or(11906)),
                                      units::fromTwips(openxml::numberAttribute(xml, u"h").value_or(16838)));
        } else if (name == u"pgMar") {
            const auto twips = [&](QStringView attribute, double fallback) {
                return units::fromTwips(openxml::numberAttribute(xml, attribute).value_or(fallback));
            };
            section.margins = QMarginsF(twips(u"left", 1417), twips(u"top", 1417), twips(u"right", 1417),
                                        twips(u"bottom", 1134));
            section.headerDistance = twips(u"header", 708);
            section.footerDistance = twips(u"footer", 708);
        } else if (name == u"titlePg") {
            section.differentFirstPage = openxml::onOff(xml);
        } else if (name == u"type") {
            section.startsNewPage = openxml::attribute(xml, u"val") != u"continuous";
        }
        xml.skipCurrentElement();
    }
    return source;
}

void TDocxImporter::buildSections(std::vector<TSectionSource>& sources, TFlow& body) {
    if (sources.empty())
        sources.emplace_back();
    QTextCursor end(&body.document.text());
    end.movePosition(QTextCursor::End);
    sources.back().section.lastParagraph = end;

    std::vector<TDocSection> sections;
    sections.reserve(sources.size());
    const TDocSection* previous = nullptr;
    for (TSectionSource& source : sources) {
        TDocSection section = source.section;
        for (int kind = 0; kind < TDocSection::kKindCount; ++kind) {
            const auto partOf = [&](const QHash<int, QString>& ids) {
                return ids.contains(kind) ? headerFooter(body.relationships.value(ids.value(kind)).target)
                                          : nullptr;
            };
            const bool ownHeader = source.headerParts.contains(kind);
            const bool ownFooter = source.footerParts.contains(kind);
            section.setHeader(kind, ownHeader  ? partOf(source.headerParts)
                                    : previous ? previous->header(kind)
                                               : nullptr);
            section.setFooter(kind, ownFooter  ? partOf(source.footerParts)
                                    : previous ? previous->footer(kind)
                                               : nullptr);
        }
        if (!sections.empty() && qAbs(section.bodyWidth() - sections.front().bodyWidth()) > 1.0)
            report(
                QStringLiteral("a section of another text width (its text keeps the first section's width)"));
        sections.push_back(section);
        previous = &sections.back();
    }
    m_target.m_sections = std::move(sections);
}

std::shared_ptr<TSubDocument> TDocxImporter::headerFooter(const QString& partName) {
    if (m_headerFooters.contains(partName))
        return m_headerFooters.value(partName);
    std::shared_ptr<TSubDocument> document = newSubDocument();
    TFlow flow{*document, QTextCursor(&document->text()), m_package->relationships(partName)};
    QXmlStreamReader xml(m_package->part(partName));
    if (openxml::nextChild(xml))
        readBlockContent(xml, flow);
    if (xml.hasError())
        report(QStringLiteral("the rest of the damaged part ") + partName);
    m_headerFooters.insert(partName, document);
    return document;
}

} // namespace engine
