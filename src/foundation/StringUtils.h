#pragma once

#include <QString>
#include <QStringList>

namespace norvik {

// AToken becomes AText up to the first ADelimiter, and AText keeps what stands behind it.
// Without the delimiter AToken takes all of AText and AText becomes empty. Gives whether the
// delimiter was found.
bool FetchToken(QString& AText, const QString& ADelimiter, bool ACaseInsensitive, QString& AToken);

// The two joined by ASeparator when neither is empty, otherwise the one that is not. With
// ATrim both are trimmed first, and a text of blanks counts as empty.
QString AddToken(const QString& AText, const QString& AToken, const QString& ASeparator, bool ATrim);

// The items trimmed, the empty ones left out, the rest joined by ASeparator.
QString JoinTrimmed(const QStringList& AItems, const QString& ASeparator);

// Replaces each ASearch[i] by AReplace[i] in one pass from left to right: what was put in is
// not searched again, and where several match at one place the first pair wins. Pairs whose
// search and replacement are equal, and empty search texts, are left out.
QString ReplaceAllOf(const QString& AText, const QStringList& ASearch, const QStringList& AReplace,
                     bool ACaseInsensitive = false);

// A value of a configuration line: "\\" gives one backslash, "\N" and "\n" a line end of
// carriage return and line feed; a backslash before anything else stays.
QString UnescapeConfigValue(const QString& AText);

// Text to stand between the apostrophes of an SQL string literal: trailing zero characters
// removed, each apostrophe doubled.
QString QuotedSQLText(const QString& AText);

// Doubled backslashes reduced, three times over, behind the first two characters, which are
// kept so that a network path "\\server" stays one.
QString NormalizePath(const QString& AText);

} // namespace norvik
