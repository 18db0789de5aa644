#include "TnvSQLiteParser.h"

namespace norvik {

namespace {

bool IsWordChar(QChar c) {
    const char16_t u = c.unicode();
    return (u >= u'0' && u <= u'9') || (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || u == u'_';
}

} // namespace

TnvSQLiteParser::TnvSQLiteParser() {
    AddReplace(QStringLiteral("ISNULL"), QStringLiteral("ISNULL"), QStringLiteral("IFNULL"));
    AddReplace(QStringLiteral("SUM"), QStringLiteral("SUM"), QStringLiteral("TOTAL"));
}

void TnvSQLiteParser::AddReplace(const QString& AName, const QString& AOldFunc, const QString& ANewFunc) {
    FFunctionReplace.insert(AName.toUpper(), TnvReplaceDefs{AOldFunc, ANewFunc});
}

void TnvSQLiteParser::RemoveReplace(const QString& AName) {
    FFunctionReplace.remove(AName.toUpper());
}

QString TnvSQLiteParser::UnbalancedClosingText() {
    // the wording says the counts match; it is kept because callers know it
    return QStringLiteral("ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein");
}

QString TnvSQLiteParser::UnbalancedOpeningText(int ALevel) {
    return UnbalancedClosingText() + QStringLiteral(" (offen %1)").arg(ALevel);
}

QString TnvSQLiteParser::ParseSQL(const QString& ASQL) {
    QString result;
    ParseSQL(ASQL, result);
    return result;
}

bool TnvSQLiteParser::ParseSQL(const QString& ASQL, QString& AResult) {
    Reset();
    AResult.clear();
    AResult.reserve(ASQL.size() + 16);
    qsizetype skip = 0;
    for (qsizetype pos = 0; pos < ASQL.size(); ++pos) {
        const QChar c = ASQL.at(pos);
        if (c == u'\'') {
            FStates.IsInString = !FStates.IsInString;
        } else if (!FStates.IsInString) {
            if (IsWordChar(c)) {
                FToken.append(c);
            } else {
                if (c == u'(') {
                    OpenBracket();
                } else if (c == u')') {
                    if (FLevel < 1) {
                        AResult = UnbalancedClosingText();
                        return false;
                    }
                    WritePendingLimit(AResult);
                    FStates = FStatsStack.takeLast();
                    --FLevel;
                }
                const qsizetype wordSkip = FinishWord(ASQL, pos, AResult);
                if (wordSkip > 0)
                    skip = wordSkip;
            }
        }
        if (skip < 1)
            AResult.append(c);
        else
            --skip;
    }
    if (FLevel != 0) {
        AResult = UnbalancedOpeningText(FLevel);
        return false;
    }
    WritePendingLimit(AResult);
    return true;
}

void TnvSQLiteParser::Reset() {
    FStates = TnvStats();
    FStatsStack.clear();
    FToken.clear();
    FLevel = 0;
}

void TnvSQLiteParser::OpenBracket() {
    FStatsStack.append(FStates);
    FStates = TnvStats();
    ++FLevel;
}

void TnvSQLiteParser::WritePendingLimit(QString& AResult) const {
    if (!FStates.TopStatement.isEmpty())
        AResult.append(QStringLiteral(" LIMIT ") + FStates.TopStatement);
}

qsizetype TnvSQLiteParser::FinishWord(const QString& ASQL, qsizetype APos, QString& AResult) {
    // A word is looked at only as it stands at the end of the result: one that runs across a
    // string, or that was left out as the limit of a TOP, is no keyword, and taking its length
    // off the result would cut away other characters of the statement.
    const bool written = !FToken.isEmpty() && AResult.endsWith(FToken);
    qsizetype skip = 0;
    if (written && FToken.compare(QLatin1String("TOP"), Qt::CaseInsensitive) == 0) {
        // the limit is the next word; it and everything up to the character behind it goes
        qsizetype scan = APos;
        while (scan < ASQL.size() && !IsWordChar(ASQL.at(scan)))
            ++scan;
        const qsizetype limitStart = scan;
        while (scan < ASQL.size() && IsWordChar(ASQL.at(scan)))
            ++scan;
        FStates.TopStatement = ASQL.mid(limitStart, scan - limitStart);
        AResult.chop(FToken.size());
        skip = qMin(scan - APos + 1, ASQL.size() - APos);
    } else if (written) {
        const auto replace = FFunctionReplace.constFind(FToken.toUpper());
        if (replace != FFunctionReplace.cend() && AResult.endsWith(replace->OldFunc, Qt::CaseInsensitive)) {
            AResult.chop(replace->OldFunc.size());
            AResult.append(replace->NewFunc);
        }
    }
    FToken.clear();
    return skip;
}

} // namespace norvik
