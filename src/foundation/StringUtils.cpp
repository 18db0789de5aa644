#include "StringUtils.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace norvik {

bool FetchToken(QString& AText, const QString& ADelimiter, bool ACaseInsensitive, QString& AToken) {
    const qsizetype at =
        ADelimiter.isEmpty()
            ? -1
            : AText.indexOf(ADelimiter, 0, ACaseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive);
    if (at < 0) {
        AToken = AText;
        AText.clear();
        return false;
    }
    AToken = AText.left(at);
    AText = AText.mid(at + ADelimiter.size());
    return true;
}

QString AddToken(const QString& AText, const QString& AToken, const QString& ASeparator, bool ATrim) {
    const QString text = ATrim ? AText.trimmed() : AText;
    const QString token = ATrim ? AToken.trimmed() : AToken;
    if (text.isEmpty())
        return token;
    if (token.isEmpty())
        return text;
    return text + ASeparator + token;
}

QString JoinTrimmed(const QStringList& AItems, const QString& ASeparator) {
    QStringList kept;
    for (const QString& item : AItems) {
        const QString trimmed = item.trimmed();
        if (!trimmed.isEmpty())
            kept.append(trimmed);
    }
    return kept.join(ASeparator);
}

QString ReplaceAllOf(const QString& AText, const QStringList& ASearch, const QStringList& AReplace,
                     bool ACaseInsensitive) {
    const Qt::CaseSensitivity sensitivity = ACaseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive;
    std::vector<std::pair<QString, QString>> pairs;
    for (qsizetype i = 0; i < std::min(ASearch.size(), AReplace.size()); ++i) {
        if (!ASearch[i].isEmpty() && ASearch[i] != AReplace[i])
            pairs.emplace_back(ASearch[i], AReplace[i]);
    }
    if (pairs.empty())
        return AText;
    QString result;
    result.reserve(AText.size());
    qsizetype pos = 0;
    while (pos < AText.size()) {
        const auto match = std::find_if(pairs.begin(), pairs.end(), [&](const auto& pair) {
            return QStringView(AText).mid(pos).startsWith(pair.first, sensitivity);
        });
        if (match == pairs.end()) {
            result += AText.at(pos++);
            continue;
        }
        result += match->second;
        pos += match->first.size();
    }
    return result;
}

QString UnescapeConfigValue(const QString& AText) {
    QString result;
    result.reserve(AText.size());
    for (qsizetype i = 0; i < AText.size(); ++i) {
        const QChar next = i + 1 < AText.size() ? AText.at(i + 1) : QChar();
        if (AText.at(i) != u'\\' || (next != u'\\' && next != u'N' && next != u'n')) {
            result += AText.at(i);
            continue;
        }
        result += next == u'\\' ? QStringLiteral("\\") : QStringLiteral("\r\n");
        ++i;
    }
    return result;
}

QString QuotedSQLText(const QString& AText) {
    qsizetype length = AText.size();
    while (length > 0 && AText.at(length - 1).isNull())
        --length;
    QString result = AText.left(length);
    result.replace(QLatin1Char('\''), QLatin1String("''"));
    return result;
}

QString NormalizePath(const QString& AText) {
    QString rest = AText.mid(2);
    for (int pass = 0; pass < 3; ++pass)
        rest.replace(QLatin1String("\\\\"), QLatin1String("\\"));
    return AText.left(2) + rest;
}

} // namespace norvik
