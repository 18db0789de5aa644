#include "TParagraphProperties.h"

#include "DocUnits.h"
#include "OpenXmlReading.h"
#include "OptionalOverride.h"
#include "TTabLeaders.h"

#include <algorithm>

namespace engine {

namespace {

std::optional<double> twipsAttribute(const QXmlStreamReader& xml, QStringView name) {
    if (const auto value = openxml::numberAttribute(xml, name))
        return units::fromTwips(*value);
    return std::nullopt;
}

Qt::Alignment alignmentOf(const QString& value) {
    if (value == u"center")
        return Qt::AlignHCenter;
    if (value == u"right" || value == u"end")
        return Qt::AlignRight;
    if (value == u"both" || value == u"distribute")
        return Qt::AlignJustify;
    return Qt::AlignLeft;
}

void readIndent(const QXmlStreamReader& xml, TParagraphProperties& props) {
    if (auto left = twipsAttribute(xml, u"left"))
        props.leftIndent = left;
    else if (auto start = twipsAttribute(xml, u"start"))
        props.leftIndent = start;
    if (auto right = twipsAttribute(xml, u"right"))
        props.rightIndent = right;
    else if (auto end = twipsAttribute(xml, u"end"))
        props.rightIndent = end;
    if (auto firstLine = twipsAttribute(xml, u"firstLine"))
        props.firstLineIndent = firstLine;
    if (auto hanging = twipsAttribute(xml, u"hanging"))
        props.firstLineIndent = -*hanging;
}

void readSpacing(const QXmlStreamReader& xml, TParagraphProperties& props) {
    overrideIfSet(props.spaceBefore, twipsAttribute(xml, u"before"));
    overrideIfSet(props.spaceAfter, twipsAttribute(xml, u"after"));
    const auto line = openxml::numberAttribute(xml, u"line");
    if (!line)
        return;
    const QString rule = openxml::attribute(xml, u"lineRule");
    if (rule == u"exact")
        props.lineSpacing = {TParagraphProperties::TLineRule::Exact, units::fromTwips(*line)};
    else if (rule == u"atLeast")
        props.lineSpacing = {TParagraphProperties::TLineRule::AtLeast, units::fromTwips(*line)};
    else
        props.lineSpacing = {TParagraphProperties::TLineRule::Auto, *line / 240.0};
}

QTextOption::TabType tabTypeOf(const QString& value) {
    if (value == u"right" || value == u"end")
        return QTextOption::RightTab;
    if (value == u"center")
        return QTextOption::CenterTab;
    if (value == u"decimal")
        return QTextOption::DelimiterTab;
    return QTextOption::LeftTab;
}

void readTabs(QXmlStreamReader& xml, TParagraphProperties& props) {
    while (openxml::nextChild(xml)) {
        if (xml.name() == u"tab") {
            const QString value = openxml::attribute(xml, u"val");
            TParagraphProperties::TTabStop stop;
            stop.position = twipsAttribute(xml, u"pos").value_or(0.0);
            stop.type = tabTypeOf(value);
            stop.clear = value == u"clear";
            stop.leader = TTabLeaders::fromName(openxml::attribute(xml, u"leader"));
            props.tabs.push_back(stop);
        }
        xml.skipCurrentElement();
    }
}

} // namespace

void TParagraphProperties::overrideWith(const TParagraphProperties& other) {
    overrideIfSet(style, other.style);
    overrideIfSet(alignment, other.alignment);
    overrideIfSet(leftIndent, other.leftIndent);
    overrideIfSet(rightIndent, other.rightIndent);
    overrideIfSet(firstLineIndent, other.firstLineIndent);
    overrideIfSet(spaceBefore, other.spaceBefore);
    overrideIfSet(spaceAfter, other.spaceAfter);
    overrideIfSet(lineSpacing, other.lineSpacing);
    overrideIfSet(pageBreakBefore, other.pageBreakBefore);
    overrideIfSet(contextualSpacing, other.contextualSpacing);
    tabs.insert(tabs.end(), other.tabs.begin(), other.tabs.end());
}

std::vector<TParagraphProperties::TTabStop> TParagraphProperties::effectiveTabs() const {
    std::vector<TTabStop> result;
    for (const TTabStop& stop : tabs) {
        std::erase_if(result,
                      [&](const TTabStop& kept) { return qAbs(kept.position - stop.position) < 0.5; });
        if (!stop.clear)
            result.push_back(stop);
    }
    std::sort(result.begin(), result.end(),
              [](const TTabStop& a, const TTabStop& b) { return a.position < b.position; });
    return result;
}

TParagraphProperties TParagraphProperties::read(QXmlStreamReader& xml,
                                                const std::function<void(QXmlStreamReader&)>& otherChild) {
    TParagraphProperties props;
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"tabs") {
            readTabs(xml, props);
            continue;
        }
        if (name == u"rPr" || name == u"sectPr" || name == u"numPr") {
            otherChild(xml);
            continue;
        }
        if (name == u"pStyle")
            props.style = openxml::attribute(xml, u"val");
        else if (name == u"jc")
            props.alignment = alignmentOf(openxml::attribute(xml, u"val"));
        else if (name == u"ind")
            readIndent(xml, props);
        else if (name == u"spacing")
            readSpacing(xml, props);
        else if (name == u"pageBreakBefore")
            props.pageBreakBefore = openxml::onOff(xml);
        else if (name == u"contextualSpacing")
            props.contextualSpacing = openxml::onOff(xml);
        xml.skipCurrentElement();
    }
    return props;
}

} // namespace engine
