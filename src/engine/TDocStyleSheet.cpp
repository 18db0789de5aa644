#include "TDocStyleSheet.h"

#include "DocUnits.h"
#include "OpenXmlReading.h"
#include "TParagraphSpacing.h"
#include "TSubDocument.h"
#include "TTabLeaders.h"

#include <QFont>
#include <QXmlStreamReader>

namespace engine {

namespace {

// basedOn chains are short; a deeper one is a loop in a broken file
constexpr int kMaxStyleDepth = 32;

// what Word assumes when the document sets nothing at all
constexpr double kWordFallbackPointSize = 10.0;

void readTableBorders(QXmlStreamReader& xml, bool& hasBorders) {
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"tblBorders") {
            while (openxml::nextChild(xml)) {
                const QString value = openxml::attribute(xml, u"val");
                if (!value.isEmpty() && value != u"nil" && value != u"none")
                    hasBorders = true;
                xml.skipCurrentElement();
            }
        } else {
            xml.skipCurrentElement();
        }
    }
}

} // namespace

void TDocStyleSheet::readStyles(const QByteArray& stylesXml) {
    QXmlStreamReader xml(stylesXml);
    if (!openxml::nextChild(xml))
        return;
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"docDefaults")
            readDefaults(xml);
        else if (xml.name() == u"style")
            readStyle(xml);
        else
            xml.skipCurrentElement();
    }
}

void TDocStyleSheet::readDefaults(QXmlStreamReader& xml) {
    while (openxml::nextChild(xml)) {
        const bool runDefaults = xml.name() == u"rPrDefault";
        const bool paragraphDefaults = xml.name() == u"pPrDefault";
        while (openxml::nextChild(xml)) {
            if (runDefaults && xml.name() == u"rPr")
                m_defaultRun = TRunProperties::read(xml);
            else if (paragraphDefaults && xml.name() == u"pPr")
                m_defaultParagraph =
                    TParagraphProperties::read(xml, [](QXmlStreamReader& r) { r.skipCurrentElement(); });
            else
                xml.skipCurrentElement();
        }
    }
}

void TDocStyleSheet::readStyle(QXmlStreamReader& xml) {
    TStyle style;
    style.type = openxml::attribute(xml, u"type");
    const QString id = openxml::attribute(xml, u"styleId");
    const bool isDefault = openxml::attribute(xml, u"default") == u"1";
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"basedOn") {
            style.basedOn = openxml::attribute(xml, u"val");
            xml.skipCurrentElement();
        } else if (name == u"rPr") {
            style.run = TRunProperties::read(xml);
        } else if (name == u"pPr") {
            style.paragraph =
                TParagraphProperties::read(xml, [](QXmlStreamReader& r) { r.skipCurrentElement(); });
        } else if (name == u"tblPr") {
            readTableBorders(xml, style.tableBorders);
        } else {
            xml.skipCurrentElement();
        }
    }
    if (isDefault && style.type == u"paragraph")
        m_defaultParagraphStyle = id;
    m_styles.insert(id, style);
}

void TDocStyleSheet::readTheme(const QByteArray& themeXml) {
    QXmlStreamReader xml(themeXml);
    QString* target = nullptr;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == u"majorFont")
            target = &m_majorFont;
        else if (xml.name() == u"minorFont")
            target = &m_minorFont;
        else if (xml.name() == u"latin" && target) {
            const QString face = openxml::attribute(xml, u"typeface");
            if (!face.isEmpty())
                *target = face;
            target = nullptr;
        }
    }
}

TRunProperties TDocStyleSheet::styleRun(const QString& id, int depth) const {
    const auto it = m_styles.constFind(id);
    if (it == m_styles.constEnd() || depth > kMaxStyleDepth)
        return {};
    TRunProperties props = it->basedOn.isEmpty() ? TRunProperties() : styleRun(it->basedOn, depth + 1);
    props.overrideWith(it->run);
    return props;
}

TParagraphProperties TDocStyleSheet::styleParagraph(const QString& id, int depth) const {
    const auto it = m_styles.constFind(id);
    if (it == m_styles.constEnd() || depth > kMaxStyleDepth)
        return {};
    TParagraphProperties props =
        it->basedOn.isEmpty() ? TParagraphProperties() : styleParagraph(it->basedOn, depth + 1);
    props.overrideWith(it->paragraph);
    return props;
}

TRunProperties TDocStyleSheet::runBase(const QString& paragraphStyle, const QString& characterStyle) const {
    TRunProperties props = m_defaultRun;
    props.overrideWith(styleRun(paragraphStyle.isEmpty() ? m_defaultParagraphStyle : paragraphStyle, 0));
    if (!characterStyle.isEmpty()) {
        props.overrideWith(styleRun(characterStyle, 0));
        props.characterStyle = characterStyle;
    }
    return props;
}

TParagraphProperties TDocStyleSheet::paragraphBase(const QString& paragraphStyle) const {
    TParagraphProperties props = m_defaultParagraph;
    props.overrideWith(
        styleParagraph(paragraphStyle.isEmpty() ? m_defaultParagraphStyle : paragraphStyle, 0));
    return props;
}

bool TDocStyleSheet::tableStyleHasBorders(const QString& tableStyle) const {
    for (QString id = tableStyle; !id.isEmpty();) {
        const auto it = m_styles.constFind(id);
        if (it == m_styles.constEnd())
            return false;
        if (it->tableBorders)
            return true;
        id = it->basedOn == id ? QString() : it->basedOn;
    }
    return false;
}

QTextCharFormat TDocStyleSheet::charFormat(const TRunProperties& resolved) const {
    QTextCharFormat format;
    QString family = resolved.family.value_or(QStringLiteral("Times New Roman"));
    if (resolved.themeFont)
        family = *resolved.themeFont == u"major" ? m_majorFont : m_minorFont;
    format.setFontFamilies({family});
    format.setFontPointSize(resolved.pointSize.value_or(kWordFallbackPointSize));
    format.setFontWeight(resolved.bold.value_or(false) ? QFont::Bold : QFont::Normal);
    format.setFontItalic(resolved.italic.value_or(false));
    format.setFontUnderline(resolved.underline.value_or(false));
    format.setFontStrikeOut(resolved.strikeOut.value_or(false));
    format.setForeground(resolved.color.value_or(QColor(Qt::black)));
    format.setFontHintingPreference(QFont::PreferNoHinting);
    // Word sets text without ligatures and, unless asked to, without kerning; it also keeps
    // every letter findable in the PDF
    format.setFontStyleStrategy(QFont::PreferNoShaping);
    format.setFontKerning(false);
    if (resolved.verticalAlign == TRunProperties::TVerticalAlign::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    else if (resolved.verticalAlign == TRunProperties::TVerticalAlign::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (resolved.characterStyle)
        format.setProperty(TSubDocument::kCharacterStyleProperty, *resolved.characterStyle);
    return format;
}

QTextBlockFormat TDocStyleSheet::blockFormat(const TParagraphProperties& resolved) {
    QTextBlockFormat format;
    format.setAlignment(resolved.alignment.value_or(Qt::AlignLeft));
    format.setLeftMargin(resolved.leftIndent.value_or(0.0));
    format.setRightMargin(resolved.rightIndent.value_or(0.0));
    format.setTextIndent(resolved.firstLineIndent.value_or(0.0));
    format.setTopMargin(units::toFormat(resolved.spaceBefore.value_or(0.0)));
    format.setBottomMargin(units::toFormat(resolved.spaceAfter.value_or(0.0)));
    TParagraphSpacing::setSpaceBefore(format, resolved.spaceBefore.value_or(0.0));
    TParagraphSpacing::setSpaceAfter(format, resolved.spaceAfter.value_or(0.0));
    TParagraphSpacing::setContextual(format, resolved.contextualSpacing.value_or(false));
    const auto spacing = resolved.lineSpacing.value_or(TParagraphProperties::TLineSpacing());
    switch (spacing.rule) {
    case TParagraphProperties::TLineRule::Auto:
        format.setLineHeight(spacing.value * 100.0, QTextBlockFormat::ProportionalHeight);
        TParagraphSpacing::setLineFactor(format, spacing.value);
        break;
    case TParagraphProperties::TLineRule::Exact:
        format.setLineHeight(units::toFormat(spacing.value), QTextBlockFormat::FixedHeight);
        break;
    case TParagraphProperties::TLineRule::AtLeast:
        format.setLineHeight(units::toFormat(spacing.value), QTextBlockFormat::MinimumHeight);
        break;
    }
    QList<QTextOption::Tab> tabs;
    TTabLeaders::TLeaders leaders;
    for (const auto& stop : resolved.effectiveTabs()) {
        tabs.append(QTextOption::Tab(units::toFormat(stop.position), stop.type));
        leaders.emplace_back(units::toFormat(stop.position), stop.leader);
    }
    format.setTabPositions(tabs);
    TTabLeaders::set(format, leaders);
    if (resolved.pageBreakBefore.value_or(false))
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
}

std::shared_ptr<const QHash<QString, double>> TDocStyleSheet::characterStyleSizes() const {
    auto sizes = std::make_shared<QHash<QString, double>>();
    for (auto it = m_styles.constBegin(); it != m_styles.constEnd(); ++it) {
        if (it->type != u"character")
            continue;
        if (const auto size = styleRun(it.key(), 0).pointSize)
            sizes->insert(it.key(), *size);
    }
    return sizes;
}

} // namespace engine
