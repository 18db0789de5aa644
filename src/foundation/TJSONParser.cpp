#include "TJSONParser.h"

#include "TJSONVariantData.h"
#include "Variant.h"

#include <QVarLengthArray>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <system_error>

namespace norvik {

namespace {

bool isNumberChar(char16_t c) {
    return (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.' || c == u'E' || c == u'e';
}

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool isLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

int hexValue(char16_t c) {
    if (isDigit(c))
        return c - u'0';
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    return -1;
}

// a sign and decimal digits, nothing else, within the range of Int64
template <class Char> bool tryInt64(const Char* text, int length, qint64& result) {
    int i = 0;
    bool negative = false;
    if (length > 0 && (text[0] == '-' || text[0] == '+')) {
        negative = text[0] == '-';
        i = 1;
    }
    if (i == length)
        return false;
    const quint64 limit = negative ? quint64(std::numeric_limits<qint64>::max()) + 1
                                   : quint64(std::numeric_limits<qint64>::max());
    quint64 value = 0;
    for (; i < length; ++i) {
        if (text[i] < '0' || text[i] > '9')
            return false;
        const quint64 digit = quint64(text[i] - '0');
        if (value > (limit - digit) / 10)
            return false;
        value = value * 10 + digit;
    }
    result = negative ? qint64(0 - value) : qint64(value);
    return true;
}

// Checks the form sign, digits, point, digits, exponent with at least one mantissa digit.
// decimalExponent tells where the first significant digit stands, so that a number too
// small for a double can be told from one too large.
bool isFloatForm(const char* text, int length, int& decimalExponent) {
    int i = text[0] == '-' ? 1 : 0;
    int digits = 0;
    int integerDigits = 0;
    int leadingZeros = 0;
    bool significant = false;
    auto scanDigits = [&](bool inFraction) {
        for (; i < length && text[i] >= '0' && text[i] <= '9'; ++i, ++digits) {
            significant = significant || text[i] != '0';
            if (!significant)
                ++leadingZeros;
            else if (!inFraction)
                ++integerDigits;
        }
    };
    scanDigits(false);
    if (i < length && text[i] == '.') {
        ++i;
        scanDigits(true);
    }
    if (digits == 0)
        return false;
    qint64 exponent = 0;
    if (i < length && (text[i] == 'e' || text[i] == 'E')) {
        if (!tryInt64(text + i + 1, length - i - 1, exponent))
            return false;
        i = length;
    }
    if (i != length)
        return false;
    const qint64 position = integerDigits > 0 ? integerDigits + exponent : exponent - leadingZeros;
    decimalExponent = int(std::clamp<qint64>(position, -1000000, 1000000));
    return true;
}

// a float with "." as decimal point; too large fails, too small gives zero
bool tryFloat(const char16_t* text, int length, double& result) {
    // the run holds only ASCII characters of numbers
    QVarLengthArray<char, 64> plain(length);
    for (int i = 0; i < length; ++i)
        plain[i] = char(text[i]);
    int decimalExponent = 0;
    if (!isFloatForm(plain.data(), length, decimalExponent))
        return false;
    const char* end = plain.data() + length;
    const auto [stop, error] = std::from_chars(plain.data(), end, result);
    if (error == std::errc::result_out_of_range && decimalExponent < 0) {
        result = plain[0] == '-' ? -0.0 : 0.0;
        return true;
    }
    return error == std::errc() && stop == end && std::isfinite(result);
}

// the elements moved into a list of their own length; the source keeps its capacity
template <class T> std::shared_ptr<QList<T>> exactCopy(QList<T>& source) {
    auto list = std::make_shared<QList<T>>();
    list->reserve(source.size());
    for (T& element : source)
        list->append(std::move(element));
    return list;
}

} // namespace

TJSONParser::TJSONParser(const QString& json)
    : JSONLength(int(json.size()))
    , m_json(json)
    , m_chars(reinterpret_cast<const char16_t*>(m_json.constData())) {}

char16_t TJSONParser::nextChar() {
    if (Index > JSONLength)
        return 0;
    return m_chars[Index++ - 1];
}

void TJSONParser::skipWhite() {
    while (Index <= JSONLength && m_chars[Index - 1] <= u' ')
        ++Index;
}

char16_t TJSONParser::nextNonWhiteChar() {
    skipWhite();
    return nextChar();
}

bool TJSONParser::followsText(const char16_t* rest, int length) {
    if (JSONLength - Index + 1 < length)
        return false;
    for (int i = 0; i < length; ++i) {
        if (m_chars[Index - 1 + i] != rest[i])
            return false;
    }
    Index += length;
    return true;
}

TJSONParserKind TJSONParser::GetNextJSON(Variant& value) {
    value = Variant();
    switch (nextNonWhiteChar()) {
    case u'n':
        if (!followsText(u"ull", 3))
            return kNone;
        value = Variant::null();
        return kNull;
    case u't':
        if (!followsText(u"rue", 3))
            return kNone;
        value = true;
        return kTrue;
    case u'f':
        if (!followsText(u"alse", 4))
            return kNone;
        value = false;
        return kFalse;
    case u'"': {
        QString text;
        if (!GetNextString(text))
            return kNone;
        value = std::move(text);
        return kString;
    }
    case u'{':
        return readNested(value, true);
    case u'[':
        return readNested(value, false);
    case u'-':
    case u'0':
    case u'1':
    case u'2':
    case u'3':
    case u'4':
    case u'5':
    case u'6':
    case u'7':
    case u'8':
    case u'9':
        --Index;
        return readNumber(value);
    default:
        return kNone;
    }
}

TJSONParserKind TJSONParser::readNested(Variant& value, bool isObject) {
    if (m_depth >= MaxDepth)
        return kNone;
    ++m_depth;
    TJSONVariantData data;
    const bool ok = isObject ? ParseJSONObject(data) : ParseJSONArray(data);
    --m_depth;
    // a failed parse still hands back what it built
    value = Variant(std::move(data));
    if (!ok)
        return kNone;
    return isObject ? kObject : kArray;
}

TJSONParserKind TJSONParser::readNumber(Variant& value) {
    const int start = Index;
    ++Index; // the sign or first digit
    while (Index <= JSONLength && isNumberChar(m_chars[Index - 1]))
        ++Index;
    const char16_t* run = m_chars + start - 1;
    const int length = Index - start;
    qint64 integer = 0;
    if (tryInt64(run, length, integer)) {
        value = integer;
        return kInteger;
    }
    double number = 0;
    if (tryFloat(run, length, number)) {
        value = number;
        return kFloat;
    }
    return kNone;
}

bool TJSONParser::GetNextString(QString& str) {
    // fast path: most strings hold no escape and are taken in one piece
    for (int i = Index; i <= JSONLength; ++i) {
        const char16_t c = m_chars[i - 1];
        if (c == u'"') {
            str = QString(reinterpret_cast<const QChar*>(m_chars + Index - 1), i - Index);
            Index = i + 1;
            return true;
        }
        if (c == u'\\') {
            str = QString(reinterpret_cast<const QChar*>(m_chars + Index - 1), i - Index);
            Index = i;
            return readEscapedString(str);
        }
    }
    return false;
}

bool TJSONParser::readEscapedString(QString& str) {
    for (;;) {
        // the plain characters up to the next quote, backslash or 0 are taken in one piece
        const int runStart = Index;
        while (Index <= JSONLength && m_chars[Index - 1] != u'"' && m_chars[Index - 1] != u'\\' &&
               m_chars[Index - 1] != 0)
            ++Index;
        str.append(reinterpret_cast<const QChar*>(m_chars + runStart - 1), Index - runStart);
        // the end of the text, like any character 0, ends the string without complaint
        if (nextChar() != u'\\')
            return true;
        const char16_t escaped = nextChar();
        switch (escaped) {
        case u'b':
            str += QChar(8);
            break;
        case u't':
            str += QChar(9);
            break;
        case u'n':
            str += QChar(10);
            break;
        case u'f':
            str += QChar(12);
            break;
        case u'r':
            str += QChar(13);
            break;
        case u'u': {
            char16_t code = 0;
            if (!readHexCodeUnit(code))
                return true;
            str += QChar(code);
            break;
        }
        case 0:
            return true;
        default:
            str += QChar(escaped);
        }
    }
}

bool TJSONParser::readHexCodeUnit(char16_t& code) {
    if (JSONLength - Index + 1 < 4)
        return false;
    int result = 0;
    for (int i = 0; i < 4; ++i) {
        const int digit = hexValue(m_chars[Index - 1 + i]);
        if (digit < 0)
            return false;
        result = result * 16 + digit;
    }
    Index += 4;
    code = char16_t(result);
    return true;
}

bool TJSONParser::GetNextAlphaPropName(QString& fieldName) {
    if (JSONLength - Index + 1 < 2)
        return false;
    const int start = Index;
    const char16_t first = m_chars[Index - 1];
    if (!isLetter(first) && first != u'_' && first != u'$')
        return false;
    ++Index;
    while (Index <= JSONLength && (isLetter(peekChar()) || isDigit(peekChar()) || peekChar() == u'_'))
        ++Index;
    const int length = Index - start;
    // white space may stand between the name and its separator, as in "{ key = 1 }"
    const char16_t separator = nextNonWhiteChar();
    if (separator != u':' && separator != u'=')
        return false;
    fieldName = QString(reinterpret_cast<const QChar*>(m_chars + start - 1), length);
    return true;
}

TJSONParser::Members& TJSONParser::membersAtDepth() {
    while (int(m_members.size()) <= m_depth)
        m_members.emplace_back();
    Members& members = m_members[size_t(m_depth)];
    members.names.clear();
    members.values.clear();
    return members;
}

bool TJSONParser::readKey(QString& name) {
    int end = Index;
    while (end <= JSONLength && m_chars[end - 1] != u'"' && m_chars[end - 1] != u'\\')
        ++end;
    if (end > JSONLength || m_chars[end - 1] == u'\\')
        return GetNextString(name);
    // keys repeat from object to object: equal keys share one string
    const QStringView key(m_chars + Index - 1, end - Index);
    Index = end + 1;
    const auto known = m_keys.constFind(key);
    if (known != m_keys.cend()) {
        name = *known;
        return true;
    }
    name = key.toString();
    if (m_keys.size() < MaxSharedKeys)
        m_keys.insert(key, name);
    return true;
}

bool TJSONParser::readMembers(Members& members) {
    QString name;
    Variant item;
    for (;;) {
        skipWhite();
        if (peekChar() == u'"') {
            ++Index;
            if (!readKey(name) || nextNonWhiteChar() != u':')
                return false;
        } else if (!GetNextAlphaPropName(name)) {
            return false;
        }
        if (GetNextJSON(item) == kNone)
            return false;
        members.names.append(std::move(name));
        members.values.append(std::move(item));
        const char16_t separator = nextNonWhiteChar();
        if (separator == u'}')
            return true;
        if (separator != u',')
            return false;
    }
}

bool TJSONParser::readElements(Members& elements) {
    Variant item;
    for (;;) {
        if (GetNextJSON(item) == kNone)
            return false;
        elements.values.append(std::move(item));
        const char16_t separator = nextNonWhiteChar();
        if (separator == u']')
            return true;
        if (separator != u',')
            return false;
    }
}

// A complete object or array gets arrays of exactly its length, as if appended and then cut
// to size. A partial one is appended element by element, so that it shows the spare length
// that appending leaves.
void TJSONParser::moveInto(TJSONVariantData& data, Members& members, TJSONVariantKind kind, bool complete) {
    const qsizetype count = members.values.size();
    if (!complete) {
        for (qsizetype i = 0; i < count; ++i) {
            if (kind == jvObject)
                data.AddNameValue(members.names[i], members.values[i]);
            else
                data.AddValue(members.values[i]);
        }
        return;
    }
    data.Values = exactCopy(members.values);
    if (kind == jvObject) {
        // Objects of a list mostly have the same keys; they share one names array. That is
        // safe since a record of exact length never writes into its names in place: appending
        // grows it, and growing copies a shared array first.
        if (!members.lastNames || *members.lastNames != members.names)
            members.lastNames = exactCopy(members.names);
        data.Names = members.lastNames;
    } else {
        data._Align = count > 0 ? 1 : 0;
    }
    data.VCount = int(count);
    data.VKind = kind;
}

bool TJSONParser::ParseJSONObject(TJSONVariantData& data) {
    data.Init();
    skipWhite();
    if (peekChar() == u'}') {
        ++Index;
        data.VKind = jvObject;
        return true;
    }
    Members& members = membersAtDepth();
    const bool ok = readMembers(members);
    moveInto(data, members, jvObject, ok);
    return ok;
}

bool TJSONParser::ParseJSONArray(TJSONVariantData& data) {
    data.Init();
    skipWhite();
    if (peekChar() == u']') {
        ++Index;
        data.VKind = jvArray;
        return true;
    }
    Members& elements = membersAtDepth();
    const bool ok = readElements(elements);
    moveInto(data, elements, jvArray, ok);
    return ok;
}

} // namespace norvik
