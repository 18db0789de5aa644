#include "JSONWriter.h"

#include "TDateTimeUtils.h"
#include "TJSONVariantData.h"
#include "Variant.h"

#include <cmath>

namespace norvik {

QString JSONWriter::write(const TJSONVariantData& data) {
    QString out;
    append(out, data);
    return out;
}

QString JSONWriter::valueText(const Variant& value) {
    QString out;
    appendValue(out, value);
    return out;
}

QString JSONWriter::quoted(const QString& text) {
    QString out;
    appendQuoted(out, text);
    return out;
}

void JSONWriter::append(QString& out, const TJSONVariantData& data) {
    if (data.VKind == jvUndefined) {
        out += QLatin1String("null");
        return;
    }
    const bool isObject = data.VKind == jvObject;
    if (data.VCount == 0) {
        out += isObject ? QLatin1String("{}") : QLatin1String("[]");
        return;
    }
    out += isObject ? QLatin1Char('{') : QLatin1Char('[');
    for (int i = 0; i < data.VCount; ++i) {
        if (isObject) {
            appendQuoted(out, data.NameAt(i));
            out += QLatin1Char(':');
        }
        appendValue(out, data.ValueAt(i));
        out += QLatin1Char(',');
    }
    // the spare comma closes the text
    out[out.size() - 1] = isObject ? QLatin1Char('}') : QLatin1Char(']');
}

void JSONWriter::appendValue(QString& out, const Variant& value) {
    const Variant& v = value.deref();
    switch (v.type()) {
    case VarType::JSON:
        append(out, *v.json());
        return;
    case VarType::Unassigned:
    case VarType::Null:
    case VarType::ByRef:
        out += QLatin1String("null");
        return;
    case VarType::Boolean:
        out += v.toBool() ? QLatin1String("true") : QLatin1String("false");
        return;
    case VarType::Date:
        appendQuoted(out, dateText(v.toDate()));
        return;
    case VarType::Integer:
    case VarType::Int64:
        out += QString::number(v.toInt64());
        return;
    case VarType::Double:
    case VarType::Currency:
        out += FloatToTextGeneral(v.toDouble(), 15, QLatin1Char('.'));
        return;
    case VarType::String:
    case VarType::UString:
        appendQuoted(out, v.toString());
        return;
    case VarType::Bytes:
        // any other kind is written as its conversion to text, which may raise
        appendQuoted(out, v.toString());
        return;
    }
}

void JSONWriter::appendQuoted(QString& out, const QString& text) {
    out += QLatin1Char('"');
    qsizetype clean = 0;
    const qsizetype n = text.size();
    while (clean < n) {
        const char16_t c = text.at(clean).unicode();
        if (c < 32 || c == u'"' || c == u'\\')
            break;
        ++clean;
    }
    if (clean == n) {
        out += text;
        out += QLatin1Char('"');
        return;
    }
    out += QStringView(text).left(clean);
    static const char hex[] = "0123456789ABCDEF";
    for (qsizetype i = clean; i < n; ++i) {
        const char16_t c = text.at(i).unicode();
        switch (c) {
        case 8:
            out += QLatin1String("\\b");
            break;
        case 9:
            out += QLatin1String("\\t");
            break;
        case 10:
            out += QLatin1String("\\n");
            break;
        case 12:
            out += QLatin1String("\\f");
            break;
        case 13:
            out += QLatin1String("\\r");
            break;
        case u'\\':
            out += QLatin1String("\\\\");
            break;
        case u'"':
            out += QLatin1String("\\\"");
            break;
        default:
            if (c < 32) {
                out += QLatin1String("\\u00");
                out += QLatin1Char(hex[c >> 4]);
                out += QLatin1Char(hex[c & 15]);
            } else {
                out += QChar(c);
            }
        }
    }
    out += QLatin1Char('"');
}

QString JSONWriter::dateText(TDateTime value) {
    if (value == 0)
        return QString();
    const QDateTime local = TDateTimeUtils::toQDateTime(value);
    if (value == std::trunc(value))
        return local.date().toString(QStringLiteral("yyyy-MM-dd"));
    QString text = local.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss.zzz"));
    const int offsetSeconds = local.offsetFromUtc();
    if (offsetSeconds == 0)
        return text + QLatin1Char('Z');
    const int minutes = std::abs(offsetSeconds) / 60;
    text += offsetSeconds < 0 ? QLatin1Char('-') : QLatin1Char('+');
    text += QStringLiteral("%1:%2")
                .arg(minutes / 60, 2, 10, QLatin1Char('0'))
                .arg(minutes % 60, 2, 10, QLatin1Char('0'));
    return text;
}

} // namespace norvik
