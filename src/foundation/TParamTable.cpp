#include "TParamTable.h"

namespace norvik {

namespace {

const QChar NameValueSeparator = QLatin1Char('=');
const QChar OptionSign = QLatin1Char('/');
const QChar ValueSeparator = QLatin1Char(':');

} // namespace

void TParamTable::fill(const QStringList& arguments, Positional positional) {
    clear();
    for (qsizetype i = 1; i < arguments.size(); ++i)
        addArgument(arguments.at(i), positional);
    setValue(QStringLiteral("ExeName"), arguments.value(0));
}

void TParamTable::addArgument(const QString& argument, Positional positional) {
    // only the first ":" splits, so a value may itself be a path with a drive letter
    const qsizetype colon = argument.indexOf(ValueSeparator);
    const QString left = colon < 0 ? argument : argument.left(colon);
    const QString rest = colon < 0 ? QString() : argument.mid(colon + 1);
    if (!left.startsWith(OptionSign)) {
        if (positional == Positional::Keep)
            addLine(argument);
        return;
    }
    const QString name = left.mid(1);
    if (rest.isEmpty())
        addLine(name);
    else
        setValue(name, rest);
}

QString TParamTable::value(const QString& name) const {
    const int index = indexOfName(name);
    if (index < 0)
        return QString();
    const QString& line = m_lines.at(index);
    return line.mid(line.indexOf(NameValueSeparator) + 1);
}

void TParamTable::setValue(const QString& name, const QString& value) {
    const int index = indexOfName(name);
    if (value.isEmpty()) {
        if (index >= 0)
            m_lines.removeAt(index);
        return;
    }
    const QString line = name + NameValueSeparator + value;
    if (index >= 0)
        m_lines[index] = line;
    else
        m_lines.append(line);
}

int TParamTable::indexOfName(const QString& name) const {
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const QString& line = m_lines.at(i);
        if (line.contains(NameValueSeparator) && nameOfLine(line).compare(name, Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

int TParamTable::indexOfLine(const QString& text) const {
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        if (m_lines.at(i).compare(text, Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

QString TParamTable::nameOfLine(const QString& line) {
    const qsizetype separator = line.indexOf(NameValueSeparator);
    return separator < 0 ? QString() : line.left(separator);
}

} // namespace norvik
