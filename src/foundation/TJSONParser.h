#pragma once

#include "TJSONVariantData.h"
#include "Variant.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>
#include <deque>
#include <memory>

namespace norvik {

// What GetNextJSON found; kNone means the text did not hold a value there.
enum TJSONParserKind { kNone, kNull, kFalse, kTrue, kString, kInteger, kFloat, kObject, kArray };

// Reads JSON values from a text, position by position. The reader is lenient where it costs
// nothing: keys may stand without quotes and be followed by "=", a string holding a
// backslash may lack its closing quote, and whatever follows the top value is ignored.
// A failed parse keeps what it had built so far in the value or record it was filling.
class TJSONParser {
public:
    explicit TJSONParser(const QString& json);

    const QString& JSON() const { return m_json; }
    // 1-based position of the next character
    int Index = 1;
    const int JSONLength;

    TJSONParserKind GetNextJSON(Variant& value);
    // the string behind an opening quote that has already been read
    bool GetNextString(QString& str);
    // the members behind an opening "{" that has already been read
    bool ParseJSONObject(TJSONVariantData& data);
    // the elements behind an opening "[" that has already been read
    bool ParseJSONArray(TJSONVariantData& data);
    // an unquoted key and its separator ":" or "="
    bool GetNextAlphaPropName(QString& fieldName);

private:
    // nesting beyond this depth is taken as bad text, so that no input exhausts the stack
    static constexpr int MaxDepth = 512;

    // distinct keys shared among equal ones, up to this many
    static constexpr qsizetype MaxSharedKeys = 1024;

    // what an object or array under construction has read so far
    struct Members {
        QList<QString> names;
        QList<Variant> values;
        // the names of the last object completed at this level
        std::shared_ptr<QList<QString>> lastNames;
    };

    const QString m_json;
    const char16_t* m_chars;
    int m_depth = 0;
    // one buffer per nesting level, kept from object to object so that reading allocates
    // only the final arrays
    std::deque<Members> m_members;
    QHash<QStringView, QString> m_keys;

    // the character at Index, or 0 at the end of the text
    char16_t peekChar() const { return Index <= JSONLength ? m_chars[Index - 1] : 0; }
    char16_t nextChar();
    char16_t nextNonWhiteChar();
    void skipWhite();
    bool followsText(const char16_t* rest, int length);
    bool readEscapedString(QString& str);
    bool readHexCodeUnit(char16_t& code);
    TJSONParserKind readNumber(Variant& value);
    TJSONParserKind readNested(Variant& value, bool isObject);
    Members& membersAtDepth();
    bool readKey(QString& name);
    bool readMembers(Members& members);
    bool readElements(Members& elements);
    static void moveInto(TJSONVariantData& data, Members& members, TJSONVariantKind kind, bool complete);
};

} // namespace norvik
