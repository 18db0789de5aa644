#pragma once

#include "Variant.h"

#include <QIODevice>
#include <QObject>
#include <QString>
#include <QStringList>
#include <exception>
#include <functional>
#include <initializer_list>

namespace norvik {

// An in-memory log whose lines a caller can save to a file or a stream. It has one owner and
// no lock.
class TnvLOG : public QObject {
public:
    using TNotifyEvent = std::function<void(TnvLOG* Sender)>;

    explicit TnvLOG(QObject* AOwner = nullptr);

    const QStringList& Lines() const { return FLines; }
    QString UserName() const { return FUserName; }
    void SetUserName(const QString& AValue) { FUserName = AValue; }
    QString Prefix() const { return FPrefix; }
    void SetPrefix(const QString& AValue) { FPrefix = AValue; }
    int Indent() const { return FIndent; }
    void SetIndent(int AValue);
    // fired after every change of Lines
    TNotifyEvent OnChange;

    // one line: [time "dd.mm.yyyy hh:nn:ss" and two blanks] Indent blanks, Prefix, text
    void Log(const QString& AText, bool ATimeStamp = false);
    // as above with the format expanded; a failing format logs "Exception: " and its message
    void Log(const QString& AFormat, std::initializer_list<Variant> AArgs, bool ATimeStamp = false);
    // "Exception: Class  -  message" with time stamp; nullptr logs nothing
    void Log(const std::exception* AException);
    // appends to the last line after a blank, or adds a line when there is none or ANewLine
    void Log2(const QString& AText, bool ANewLine = false);
    // as above with the format expanded; a failing format logs "LogException: " and its message
    void Log2(const QString& AFormat, std::initializer_list<Variant> AArgs, bool ANewLine = false);
    void LogCR();
    // the ruler: 89 minus signs
    void LogLine();
    // ruler, title, stamped empty line, user name, computer name, login name, ruler
    void CreateLogHeader(const QString& ATitle);
    // ruler, stamped text, ruler
    void CreateLogFooter(const QString& AText);
    // the indent grows and shrinks by IndentStep blanks, never below 0
    void IncrementIndent();
    void DecrementIndent();
    // empties the lines and sets the indent back to 0
    void Clear();
    // empties the lines only
    void ClearLog();
    // the lines in the ANSI code page, each ended by CR LF; raise EDebugFileError on failure
    void SaveLogToFile(const QString& AFileName) const;
    void SaveLogToStream(QIODevice& AStream) const;
    // the lines, each ended by CR LF
    QString ToString() const;

    static constexpr int IndentStep = 2;
    static constexpr int RulerWidth = 89;

private:
    QStringList FLines;
    QString FUserName;
    QString FPrefix;
    int FIndent = 0;

    void AddLine(const QString& ALine);
    void Changed();
};

} // namespace norvik
