#pragma once

#include <QString>
#include <QStringView>
#include <QXmlStreamReader>
#include <optional>

// Small helpers for reading WordprocessingML with a streaming reader. Attributes are looked up
// by their local name, which is unique within the elements the engine reads.
namespace engine::openxml {

QString attribute(const QXmlStreamReader& xml, QStringView localName);
std::optional<double> numberAttribute(const QXmlStreamReader& xml, QStringView localName);
// an on/off property such as <w:b/> or <w:b w:val="0"/>
bool onOff(const QXmlStreamReader& xml);
// whether the reader stands on the start of an element of that local name
bool isStart(const QXmlStreamReader& xml, QStringView localName);
// moves to the next child start element inside the current element; false at its end
bool nextChild(QXmlStreamReader& xml);
// the element's text content, reading up to its end
QString elementText(QXmlStreamReader& xml);

} // namespace engine::openxml
