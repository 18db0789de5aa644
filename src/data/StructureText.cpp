#include "StructureText.h"

namespace norvik {

QStringList StructureText::SplitLines(const QString& AText) {
    QStringList lines;
    qsizetype start = 0;
    qsizetype pos = 0;
    while (pos < AText.size()) {
        const QChar c = AText.at(pos);
        if (c != u'\r' && c != u'\n') {
            ++pos;
            continue;
        }
        lines.append(AText.mid(start, pos - start));
        ++pos;
        if (c == u'\r' && pos < AText.size() && AText.at(pos) == u'\n')
            ++pos;
        start = pos;
    }
    if (start < AText.size())
        lines.append(AText.mid(start));
    return lines;
}

QString StructureText::JoinLines(const QStringList& ALines) {
    QString text;
    for (const QString& line : ALines)
        text += line + QStringLiteral("\r\n");
    return text;
}

QString StructureText::FetchColumn(QString& AText) {
    const qsizetype pos = AText.indexOf(u';');
    if (pos < 0) {
        const QString column = AText;
        AText.clear();
        return column;
    }
    const QString column = AText.left(pos);
    AText.remove(0, pos + 1);
    return column;
}

QString StructureText::TrimControl(const QString& AText) {
    qsizetype first = 0;
    qsizetype last = AText.size() - 1;
    while (first <= last && AText.at(first).unicode() <= u' ')
        ++first;
    while (last >= first && AText.at(last).unicode() <= u' ')
        --last;
    return AText.mid(first, last - first + 1);
}

bool StructureText::IsKind(const QString& ALine, QChar AKind) {
    return ALine.left(2).toUpper() == QString(AKind) + QLatin1Char(':');
}

bool StructureText::IsRelevant(const QString& ALine) {
    const QString start = ALine.left(2);
    return start == QLatin1String("T:") || start == QLatin1String("F:") || start == QLatin1String("I:");
}

int StructureText::SkipToRelevant(const QStringList& ALines, int AFrom) {
    int index = AFrom;
    while (index < ALines.size() && !IsRelevant(ALines.at(index)))
        ++index;
    return index;
}

int StructureText::NextTable(const QStringList& ALines, int AFrom) {
    int index = qMax(AFrom, 0);
    while (index < ALines.size() && !IsKind(ALines.at(index), u'T'))
        ++index;
    return index;
}

int StructureText::PreviousTable(const QStringList& ALines, int AFrom) {
    int index = qMin(AFrom, int(ALines.size()) - 1);
    while (index >= 0 && !IsKind(ALines.at(index), u'T'))
        --index;
    return index;
}

QString StructureText::TableName(const QStringList& ALines, int AIndex) {
    if (AIndex < 0 || AIndex >= ALines.size())
        return EndOfList();
    return TrimControl(ALines.at(AIndex)).mid(2);
}

int StructureText::ReadExportFormatVersion(const QStringList& ALines) {
    bool inHeader = false;
    for (const QString& line : ALines) {
        if (!inHeader) {
            inHeader = line.compare(QLatin1String("[Header]"), Qt::CaseInsensitive) == 0;
            continue;
        }
        if (line.compare(QLatin1String("[HeaderEnd]"), Qt::CaseInsensitive) == 0)
            break;
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 0 ||
            line.left(equals).compare(QLatin1String("ExportFormatVersion"), Qt::CaseInsensitive) != 0)
            continue;
        bool ok = false;
        const int version = line.mid(equals + 1).trimmed().toInt(&ok);
        return ok ? version : 0;
    }
    return 0;
}

namespace {

char16_t FoldAscii(char16_t c) {
    return (c >= u'a' && c <= u'z') ? char16_t(c - (u'a' - u'A')) : c;
}

} // namespace

int StructureText::CompareNames(const QString& ALeft, const QString& ARight) {
    const qsizetype common = qMin(ALeft.size(), ARight.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t left = FoldAscii(ALeft.at(i).unicode());
        const char16_t right = FoldAscii(ARight.at(i).unicode());
        if (left != right)
            return left < right ? -1 : 1;
    }
    if (ALeft.size() == ARight.size())
        return 0;
    return ALeft.size() < ARight.size() ? -1 : 1;
}

} // namespace norvik
