#include "TRunProperties.h"

#include "OpenXmlReading.h"
#include "OptionalOverride.h"

namespace engine {

namespace {

void readFonts(QXmlStreamReader& xml, TRunProperties& props) {
    const QString family = openxml::attribute(xml, u"ascii");
    const QString theme = openxml::attribute(xml, u"asciiTheme");
    if (!family.isEmpty()) {
        props.family = family;
        props.themeFont.reset();
    } else if (!theme.isEmpty()) {
        props.themeFont = theme.startsWith(u"major") ? QStringLiteral("major") : QStringLiteral("minor");
    }
    xml.skipCurrentElement();
}

std::optional<QColor> readColor(QXmlStreamReader& xml) {
    const QString value = openxml::attribute(xml, u"val");
    xml.skipCurrentElement();
    if (value.isEmpty() || value == u"auto")
        return QColor(Qt::black);
    const QColor color(QString(u'#' + value));
    return color.isValid() ? std::optional<QColor>(color) : std::nullopt;
}

TRunProperties::TVerticalAlign readVerticalAlign(QXmlStreamReader& xml) {
    const QString value = openxml::attribute(xml, u"val");
    xml.skipCurrentElement();
    if (value == u"superscript")
        return TRunProperties::TVerticalAlign::Superscript;
    if (value == u"subscript")
        return TRunProperties::TVerticalAlign::Subscript;
    return TRunProperties::TVerticalAlign::Baseline;
}

} // namespace

void TRunProperties::overrideWith(const TRunProperties& other) {
    if (other.family || other.themeFont) {
        family = other.family;
        themeFont = other.themeFont;
    }
    overrideIfSet(pointSize, other.pointSize);
    overrideIfSet(bold, other.bold);
    overrideIfSet(italic, other.italic);
    overrideIfSet(underline, other.underline);
    overrideIfSet(strikeOut, other.strikeOut);
    overrideIfSet(color, other.color);
    overrideIfSet(verticalAlign, other.verticalAlign);
    overrideIfSet(characterStyle, other.characterStyle);
}

TRunProperties TRunProperties::read(QXmlStreamReader& xml) {
    TRunProperties props;
    while (openxml::nextChild(xml)) {
        const auto name = xml.name();
        if (name == u"rFonts") {
            readFonts(xml, props);
            continue;
        }
        if (name == u"color") {
            props.color = readColor(xml);
            continue;
        }
        if (name == u"vertAlign") {
            props.verticalAlign = readVerticalAlign(xml);
            continue;
        }
        if (name == u"sz") {
            if (const auto halfPoints = openxml::numberAttribute(xml, u"val"))
                props.pointSize = *halfPoints / 2.0;
        } else if (name == u"b") {
            props.bold = openxml::onOff(xml);
        } else if (name == u"i") {
            props.italic = openxml::onOff(xml);
        } else if (name == u"strike") {
            props.strikeOut = openxml::onOff(xml);
        } else if (name == u"u") {
            const QString value = openxml::attribute(xml, u"val");
            props.underline = !value.isEmpty() && value != u"none";
        } else if (name == u"rStyle") {
            props.characterStyle = openxml::attribute(xml, u"val");
        }
        xml.skipCurrentElement();
    }
    return props;
}

} // namespace engine
