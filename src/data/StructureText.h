#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

namespace norvik {

// The line-oriented structure definition: an optional header between "[Header]" and
// "[HeaderEnd]", then one block per table of "T:" table line, "F:" field lines and "I:" index
// lines. Columns are cut at each ";" with no quoting of any kind.
class StructureText {
public:
    // the sentinel name of a list that has run out; table names must sort before it
    static QString EndOfList() { return QStringLiteral("ZZZZ"); }

    // Splits at CR LF, a lone CR or a lone LF; a line end at the very end opens no empty line.
    static QStringList SplitLines(const QString& AText);
    // every line followed by CR LF
    static QString JoinLines(const QStringList& ALines);

    // AText up to the first ";"; AText keeps what stands behind it, or becomes empty
    static QString FetchColumn(QString& AText);
    // without the characters up to the blank at both ends
    static QString TrimControl(const QString& AText);

    // the test while walking through a block: the first two characters after upper-casing
    static bool IsKind(const QString& ALine, QChar AKind);
    // the test while skipping between the parts of a block: exactly "T:", "F:" or "I:"
    static bool IsRelevant(const QString& ALine);
    // the first line from AFrom on that is relevant; ALines.size() if there is none
    static int SkipToRelevant(const QStringList& ALines, int AFrom);
    // the first "T:" line from AFrom on, forward or backward; size() or -1 if there is none
    static int NextTable(const QStringList& ALines, int AFrom);
    static int PreviousTable(const QStringList& ALines, int AFrom);
    // the name behind "T:" of the line at AIndex, or EndOfList() behind the end
    static QString TableName(const QStringList& ALines, int AIndex);

    // "ExportFormatVersion" of the header; 0 without header, key or integer value
    static int ReadExportFormatVersion(const QStringList& ALines);

    // ASCII order ignoring case: only the letters a to z are folded
    static int CompareNames(const QString& ALeft, const QString& ARight);
};

} // namespace norvik
