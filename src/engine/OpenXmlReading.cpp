#include "OpenXmlReading.h"

namespace engine::openxml {

QString attribute(const QXmlStreamReader& xml, QStringView localName) {
    for (const QXmlStreamAttribute& attr : xml.attributes()) {
        if (attr.name() == localName)
            return attr.value().toString();
    }
    return {};
}

std::optional<double> numberAttribute(const QXmlStreamReader& xml, QStringView localName) {
    const QString text = attribute(xml, localName);
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return value;
}

bool onOff(const QXmlStreamReader& xml) {
    const QString value = attribute(xml, u"val");
    return value.isEmpty() || (value != u"0" && value != u"false" && value != u"off");
}

bool isStart(const QXmlStreamReader& xml, QStringView localName) {
    return xml.isStartElement() && xml.name() == localName;
}

bool nextChild(QXmlStreamReader& xml) {
    return xml.readNextStartElement();
}

QString elementText(QXmlStreamReader& xml) {
    return xml.readElementText(QXmlStreamReader::IncludeChildElements);
}

} // namespace engine::openxml
