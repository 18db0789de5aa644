#include "FormatText.h"

#include "EConvertError.h"
#include "SystemFormats.h"

#include <cmath>
#include <vector>

namespace norvik {

namespace {

struct FormatSpec {
    bool leftJustify = false;
    int width = -1;
    int precision = -1;
    QChar type;
};

class Formatter {
public:
    Formatter(const QString& format, std::initializer_list<Variant> args)
        : m_format(format)
        , m_args(args) {}

    QString run() {
        QString result;
        qsizetype pos = 0;
        while (pos < m_format.size()) {
            const qsizetype percent = m_format.indexOf(u'%', pos);
            if (percent < 0) {
                result.append(QStringView(m_format).mid(pos));
                break;
            }
            result.append(QStringView(m_format).mid(pos, percent - pos));
            pos = percent + 1;
            if (pos < m_format.size() && m_format.at(pos) == u'%') {
                result.append(u'%');
                ++pos;
                continue;
            }
            result.append(expand(readSpec(pos)));
        }
        return result;
    }

private:
    const QString& m_format;
    std::vector<Variant> m_args;
    size_t m_next = 0;

    [[noreturn]] void invalid() const {
        throw EConvertError(
            QStringLiteral("Format '%1' invalid or incompatible with argument").arg(m_format));
    }

    const Variant& nextArgument() {
        if (m_next >= m_args.size())
            throw EConvertError(QStringLiteral("No argument for format '%1'").arg(m_format));
        return m_args[m_next++];
    }

    static bool isAsciiDigit(QChar c) { return c.unicode() >= u'0' && c.unicode() <= u'9'; }

    // digits at pos as a number, "*" as the next argument, nothing as -1
    int readNumber(qsizetype& pos) {
        if (pos < m_format.size() && m_format.at(pos) == u'*') {
            ++pos;
            return argumentAs<int>([](const Variant& v) { return v.toInt(); });
        }
        int value = -1;
        while (pos < m_format.size() && isAsciiDigit(m_format.at(pos))) {
            value = qMax(value, 0);
            if (value > 100000)
                invalid();
            value = value * 10 + (m_format.at(pos).unicode() - u'0');
            ++pos;
        }
        return value;
    }

    FormatSpec readSpec(qsizetype& pos) {
        FormatSpec spec;
        qsizetype afterDigits = pos;
        while (afterDigits < m_format.size() && isAsciiDigit(m_format.at(afterDigits)))
            ++afterDigits;
        if (afterDigits < m_format.size() && m_format.at(afterDigits) == u':') {
            const int index = readNumber(pos);
            if (index < 0)
                invalid();
            m_next = size_t(index);
            ++pos;
        }
        if (pos < m_format.size() && m_format.at(pos) == u'-') {
            spec.leftJustify = true;
            ++pos;
        }
        spec.width = readNumber(pos);
        if (pos < m_format.size() && m_format.at(pos) == u'.') {
            ++pos;
            spec.precision = qMax(readNumber(pos), 0);
        }
        if (pos >= m_format.size())
            invalid();
        spec.type = m_format.at(pos).toLower();
        ++pos;
        return spec;
    }

    template <typename T, typename Conversion> T argumentAs(Conversion convert) {
        const Variant& argument = nextArgument();
        try {
            return convert(argument);
        } catch (const EVariantError&) {
            invalid();
        }
    }

    QString expand(const FormatSpec& spec) {
        QString text = body(spec);
        if (spec.width > text.size()) {
            const QString padding(spec.width - text.size(), u' ');
            text = spec.leftJustify ? text + padding : padding + text;
        }
        return text;
    }

    QString body(const FormatSpec& spec) {
        switch (spec.type.unicode()) {
        case u'd':
            return integerText(argumentAs<qint64>([](const Variant& v) { return v.toInt64(); }), spec, 10);
        case u'u':
            return integerText(argumentAs<qint64>([](const Variant& v) { return v.toInt64(); }), spec, 10,
                               true);
        case u'x':
            return integerText(argumentAs<qint64>([](const Variant& v) { return v.toInt64(); }), spec, 16,
                               true);
        case u's': {
            const QString text = argumentAs<QString>([](const Variant& v) { return v.toString(); });
            return spec.precision >= 0 ? text.left(spec.precision) : text;
        }
        case u'e':
            return scientificText(floatArgument(), spec.precision < 0 ? 15 : spec.precision);
        case u'f':
            return fixedText(floatArgument(), spec.precision < 0 ? 2 : spec.precision, false);
        case u'n':
            return fixedText(floatArgument(), spec.precision < 0 ? 2 : spec.precision, true);
        case u'g':
            return FloatToTextGeneral(
                floatArgument(), spec.precision < 0 ? 15 : qBound(1, spec.precision, 18), decimalSeparator());
        default:
            invalid();
        }
    }

    double floatArgument() {
        return argumentAs<double>([](const Variant& v) { return v.toDouble(); });
    }

    static QChar decimalSeparator() { return platform::SystemFormats::current().decimalSeparator; }

    static QString integerText(qint64 value, const FormatSpec& spec, int base, bool asUnsigned = false) {
        const bool negative = value < 0 && !asUnsigned;
        QString digits = negative ? QString::number(-quint64(value), base)
                                  : QString::number(quint64(value), base).toUpper();
        if (spec.precision > digits.size())
            digits.prepend(QString(spec.precision - digits.size(), u'0'));
        return negative ? u'-' + digits : digits;
    }

    static QString fixedText(double value, int precision, bool withThousands) {
        if (!std::isfinite(value))
            return FloatToTextGeneral(value, 15, decimalSeparator());
        QString text = QString::number(value, 'f', qMin(precision, 18));
        const qsizetype point = text.indexOf(u'.');
        if (point >= 0)
            text[point] = decimalSeparator();
        if (withThousands) {
            const qsizetype firstDigit = text.startsWith(u'-') ? 1 : 0;
            const QChar thousands = platform::SystemFormats::current().thousandSeparator;
            for (qsizetype at = (point >= 0 ? point : text.size()) - 3; at > firstDigit; at -= 3)
                text.insert(at, thousands);
        }
        return text;
    }

    static QString scientificText(double value, int precision) {
        if (!std::isfinite(value))
            return FloatToTextGeneral(value, 15, decimalSeparator());
        const QString text = QString::number(value, 'e', qBound(1, precision, 18) - 1);
        const qsizetype e = text.indexOf(u'e');
        QString mantissa = text.left(e);
        mantissa.replace(u'.', decimalSeparator());
        const QChar sign = text.at(e + 1);
        QString exponent = text.mid(e + 2);
        exponent.prepend(QString(qMax<qsizetype>(0, 3 - exponent.size()), u'0'));
        return mantissa + u'E' + sign + exponent;
    }
};

} // namespace

QString FormatText(const QString& format, std::initializer_list<Variant> args) {
    return Formatter(format, args).run();
}

} // namespace norvik
