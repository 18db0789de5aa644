#pragma once

#include "TJSONVariantData.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <stdexcept>
#include <utility>
#include <variant>

namespace norvik {

// Days since 30 December 1899, the fraction being the time of day.
using TDateTime = double;

// A fixed-point amount with four decimals, stored as the value times 10,000.
struct Currency {
    qint64 scaled = 0;
    static constexpr qint64 Scale = 10000;
    static Currency fromDouble(double value);
    double toDouble() const { return double(scaled) / Scale; }
    friend bool operator==(Currency a, Currency b) = default;
};

enum class VarType : quint8 {
    Unassigned,
    Null,
    Boolean,
    Integer, // 32 bit
    Int64,
    Double,
    Currency,
    Date,
    String,  // narrow text
    UString, // wide text: what the program's strings are
    Bytes,   // array of byte
    ByRef,   // points to another variant, never owns it
    JSON,    // an object or array, see TJSONVariantData
};

// Base of the variant layer's errors.
class EVariantError : public std::runtime_error {
public:
    explicit EVariantError(const QString& message);
    QString message() const { return QString::fromUtf8(what()); }
};

// "Could not convert variant of type (X) into type (Y)"
class EVariantTypeCastError : public EVariantError {
public:
    EVariantTypeCastError(VarType from, VarType to);
};

// A number that does not fit the kind asked for.
class EVariantOverflowError : public EVariantError {
public:
    EVariantOverflowError(VarType from, VarType to);
};

// The general value type of the framework. Unlike QVariant it knows Unassigned apart from
// Null, narrow from wide text, currency and date kinds, references and JSON, and its
// conversions raise when a value cannot become what is asked for.
class Variant {
public:
    Variant() = default;
    Variant(bool value)
        : m_value(value) {}
    Variant(qint32 value)
        : m_value(value) {}
    Variant(qint64 value)
        : m_value(value) {}
    Variant(double value)
        : m_value(value) {}
    Variant(Currency value)
        : m_value(value) {}
    Variant(const QString& value)
        : m_value(value) {}
    Variant(QString&& value)
        : m_value(std::move(value)) {}
    Variant(const char16_t* value)
        : m_value(QString::fromUtf16(value)) {}
    Variant(const QByteArray& bytes)
        : m_value(bytes) {}
    Variant(const TJSONVariantData& json)
        : m_value(json) {}
    Variant(TJSONVariantData&& json)
        : m_value(std::move(json)) {}
    // no implicit conversions from pointers: a char* or Variant* must say what it means
    Variant(const char*) = delete;
    Variant(const void*) = delete;

    static Variant null();
    static Variant fromDate(TDateTime value);
    static Variant fromAnsiString(const QString& value);
    static Variant byRef(Variant* target);

    VarType type() const;
    // the kind after following references
    VarType valueType() const { return deref().type(); }
    static QString typeName(VarType type);

    bool isUnassigned() const { return valueType() == VarType::Unassigned; }
    bool isNull() const { return valueType() == VarType::Null; }
    // Unassigned or Null
    bool isEmpty() const;
    bool isJSON() const { return valueType() == VarType::JSON; }
    bool isString() const;
    bool isOrdinal() const;
    bool isFloat() const;

    // what a reference points to, or this variant itself
    const Variant& deref() const;
    Variant& deref();
    // a copy with the references followed, as a store keeps it
    Variant stripped() const { return deref(); }
    Variant* refTarget() const;

    // conversions; each raises EVariantTypeCastError where the value has no such meaning
    bool toBool() const;
    qint32 toInt() const;
    qint64 toInt64() const;
    double toDouble() const;
    Currency toCurrency() const;
    TDateTime toDate() const;
    QString toString() const;
    QByteArray toBytes() const;

    // JSON record of this variant (following references); nullptr for any other kind
    const TJSONVariantData* json() const;
    TJSONVariantData* json();

    // key access of a JSON object: the element, or an empty narrow string when the key is
    // absent (neither Null nor Unassigned, so it reads as "" and as no number). Raises
    // EVariantError when this is no JSON variant.
    Variant value(const QString& name) const;
    Variant operator[](const QString& name) const { return value(name); }
    // the same access for writing through a chain: a reference to the element itself, so
    // that doc.valueRef("a").setValue("b", x) changes the object nested in doc. It stays
    // valid until the record's arrays grow; an absent key gives value()'s empty string.
    Variant valueRef(const QString& name);
    // writes the key, replacing a present one; raises on anything but a JSON variant
    void setValue(const QString& name, const Variant& value);

    // same kind and same value; JSON compares by its written text
    bool operator==(const Variant& other) const;

private:
    struct NullTag {
        bool operator==(const NullTag&) const = default;
    };
    struct DateValue {
        TDateTime days = 0;
        bool operator==(const DateValue&) const = default;
    };
    struct AnsiText {
        QString text;
        bool operator==(const AnsiText&) const = default;
    };
    struct Reference {
        Variant* target = nullptr;
        bool operator==(const Reference&) const = default;
    };

    // the order follows VarType
    using Storage = std::variant<std::monostate, NullTag, bool, qint32, qint64, double, Currency, DateValue,
                                 AnsiText, QString, QByteArray, Reference, TJSONVariantData>;
    Storage m_value;

    explicit Variant(Storage value)
        : m_value(std::move(value)) {}
    [[noreturn]] void castError(VarType to) const;
    double textToDouble(VarType to) const;
};

// Float text in general format: fixed notation while it fits the precision, otherwise
// scientific ("1E20", "1,5E-7"); no thousands separator.
QString FloatToTextGeneral(double value, int precision, QChar decimalSeparator);

} // namespace norvik
