#pragma once

#include <QString>
#include <QStringList>

namespace norvik {

// A list of "name=value" lines with case-insensitive names, as the command line is kept in.
// Lines without "=" are bare switches or positional arguments; they have no value but can be
// found as a whole line.
class TParamTable {
public:
    enum class Positional { Keep, Drop };

    void clear() { m_lines.clear(); }
    // Reads the process arguments: "/name:value" sets a value, "/name" adds a bare line, and
    // anything else is positional. Argument 0 becomes the entry ExeName.
    void fill(const QStringList& arguments, Positional positional);

    // the value part of the first line whose name matches; empty when there is none
    QString value(const QString& name) const;
    // replaces the first line of that name or appends one; an empty value removes the line
    void setValue(const QString& name, const QString& value);
    void addLine(const QString& line) { m_lines.append(line); }

    // index of the first line with that name before its "=", or -1
    int indexOfName(const QString& name) const;
    // index of the first line equal to text in any letter case, or -1
    int indexOfLine(const QString& text) const;
    const QStringList& lines() const { return m_lines; }

    // the name part of a line: everything before its first "=", or empty without one
    static QString nameOfLine(const QString& line);

private:
    void addArgument(const QString& argument, Positional positional);

    QStringList m_lines;
};

} // namespace norvik
