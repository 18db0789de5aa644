#pragma once

#include "IInterface.h"
#include "TFieldType.h"
#include "Variant.h"

#include <QByteArray>
#include <QString>
#include <memory>

class QObject;
struct QMetaObject;

namespace norvik {

// What an entry holds, decided by the first payload that is set in this order.
enum TnvNamedValueDataType : quint8 { nvObject, nvClass, nvPointer, nvInterface, nvVariant };

// One entry of a named-value list: a name, a value and, independently of each other, an
// object, a class, an untyped pointer and an interface. Object and pointer are only
// referred to, never owned; the interface is held by its reference count.
class TnvNamedValue {
public:
    TnvNamedValue(const QString& AName, const Variant& AValue);
    TnvNamedValue(const TnvNamedValue&) = delete;
    TnvNamedValue& operator=(const TnvNamedValue&) = delete;

    TnvNamedValueDataType DataType() const;
    const std::shared_ptr<IInterface>& AInterface() const { return FInterface; }
    void SetInterface(std::shared_ptr<IInterface> AValue) { FInterface = std::move(AValue); }
    // the interface as T, or nullptr when the entry holds none of that type
    template <class T> std::shared_ptr<T> Supports() const {
        return std::dynamic_pointer_cast<T>(FInterface);
    }
    // takes value and payloads of another entry; name, field type and tag stay
    void ApplyValueFrom(const TnvNamedValue& AValue);

    const QString& Name() const { return FName; }
    void SetName(const QString& AName) { FName = AName; }
    const Variant& AsVariant() const { return FValue; }
    void SetAsVariant(const Variant& AValue) { FValue = AValue; }
    TFieldType FieldType() const { return FFieldType; }
    void SetFieldType(TFieldType AValue) { FFieldType = AValue; }
    qint32 Tag() const { return FTag; }
    void SetTag(qint32 AValue) { FTag = AValue; }

    // Readers give the type's zero for an empty value and otherwise convert it; a value
    // that cannot be converted raises the variant layer's error.
    qint32 AsInteger() const;
    // narrow text reads leniently as a 32-bit number (0 when it is none), every other kind
    // converts strictly; callers rely on both
    qint64 AsIdentifier() const;
    QString AsString() const;
    double AsDouble() const;
    Currency AsCurrency() const;
    // the value as a day count; text holding a date is not read as one
    TDateTime AsDateTime() const;
    bool AsBoolean() const;
    // the bytes when the value is an array of byte, otherwise none
    QByteArray AsBytes() const;
    void* AsPointer() const { return FPointer; }
    QObject* AsObject() const { return FObject; }
    const QMetaObject* AsClass() const { return FClass; }
    // Null only, not Unassigned
    bool IsNull() const;

    void SetAsInteger(qint32 AValue) { FValue = Variant(AValue); }
    void SetAsIdentifier(qint64 AValue) { FValue = Variant(AValue); }
    void SetAsString(const QString& AValue) { FValue = Variant(AValue); }
    void SetAsDouble(double AValue) { FValue = Variant(AValue); }
    void SetAsCurrency(Currency AValue) { FValue = Variant(AValue); }
    void SetAsDateTime(TDateTime AValue) { FValue = Variant::fromDate(AValue); }
    void SetAsBoolean(bool AValue) { FValue = Variant(AValue); }
    void SetAsBytes(const QByteArray& AValue) { FValue = Variant(AValue); }
    void SetAsPointer(void* AValue) { FPointer = AValue; }
    void SetAsObject(QObject* AValue) { FObject = AValue; }
    void SetAsClass(const QMetaObject* AValue) { FClass = AValue; }
    // makes the value Null whatever is passed
    void SetIsNull(bool AValue);

private:
    QString FName;
    Variant FValue;
    void* FPointer = nullptr;
    QObject* FObject = nullptr;
    const QMetaObject* FClass = nullptr;
    std::shared_ptr<IInterface> FInterface;
    TFieldType FFieldType = ftUnknown;
    qint32 FTag = 0;
};

} // namespace norvik
