#pragma once

#include "IInterface.h"
#include "TVarRec.h"
#include "TnvNamedValue.h"
#include "Variant.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

class QObject;
struct QMetaObject;

namespace norvik {

// A bag of parameters: one typed value per name, names compared without regard to letter
// case. Lists are shared by reference count (InvNamedValuesPtr) and belong to one thread
// at a time.
//
// Getters come in three flavours: GetValueAs<T>(name) raises Exception "The named value
// "<name>" does not exist!" for a missing name (except GetValueAsBytes), GetAs<T>(name)
// gives the type's zero instead, and GetValueAs<T>(name, default) gives the default. A
// present entry is always converted, so a Null value gives the zero and not the default,
// and a value that does not convert raises the variant layer's error.
class InvNamedValues : public IInterface {
public:
    // the entry or nullptr
    virtual TnvNamedValue* GetNamedValue(const QString& AName) const = 0;
    // the entry; raises Exception when the name is missing
    virtual TnvNamedValue* GetValue(const QString& AName) const = 0;
    // stores a copy of the value (references followed) under the name, keeping payloads,
    // tag and field type of a present entry
    virtual void SetValue(const QString& AName, const Variant& AValue) = 0;
    // the entries in no particular order
    virtual QList<TnvNamedValue*> GetValues() const = 0;
    QList<TnvNamedValue*> Values() const { return GetValues(); }
    // true as well for a missing name
    virtual bool GetIsNull(const QString& AName) const = 0;

    virtual qint64 GetValueAsIdentifier(const QString& AName) const = 0;
    virtual qint32 GetValueAsInteger(const QString& AName) const = 0;
    virtual bool GetValueAsBoolean(const QString& AName) const = 0;
    virtual TDateTime GetValueAsDateTime(const QString& AName) const = 0;
    virtual double GetValueAsDouble(const QString& AName) const = 0;
    virtual QObject* GetValueAsObject(const QString& AName) const = 0;
    virtual const QMetaObject* GetValueAsClass(const QString& AName) const = 0;
    virtual void* GetValueAsPointer(const QString& AName) const = 0;
    virtual QString GetValueAsString(const QString& AName) const = 0;
    virtual Currency GetValueAsCurrency(const QString& AName) const = 0;
    virtual Variant GetValueAsVariant(const QString& AName) const = 0;
    // never raises: no bytes for a missing name
    virtual QByteArray GetValueAsBytes(const QString& AName) const = 0;

    virtual qint64 GetAsIdentifier(const QString& AName) const = 0;
    virtual qint32 GetAsInteger(const QString& AName) const = 0;
    virtual bool GetAsBoolean(const QString& AName) const = 0;
    virtual TDateTime GetAsDateTime(const QString& AName) const = 0;
    virtual double GetAsDouble(const QString& AName) const = 0;
    virtual QObject* GetAsObject(const QString& AName) const = 0;
    // QObject's class, not nullptr, for a missing name
    virtual const QMetaObject* GetAsClass(const QString& AName) const = 0;
    virtual void* GetAsPointer(const QString& AName) const = 0;
    virtual QString GetAsString(const QString& AName) const = 0;
    virtual Currency GetAsCurrency(const QString& AName) const = 0;
    // Null for a missing name
    virtual Variant GetAsVariant(const QString& AName) const = 0;
    virtual QByteArray GetAsBytes(const QString& AName) const = 0;

    virtual qint64 GetValueAsIdentifier(const QString& AName, qint64 ADefault) const = 0;
    virtual qint32 GetValueAsInteger(const QString& AName, qint32 ADefault) const = 0;
    virtual bool GetValueAsBoolean(const QString& AName, bool ADefault) const = 0;
    virtual TDateTime GetValueAsDateTime(const QString& AName, TDateTime ADefault) const = 0;
    virtual double GetValueAsDouble(const QString& AName, double ADefault) const = 0;
    virtual QObject* GetValueAsObject(const QString& AName, QObject* ADefault) const = 0;
    virtual const QMetaObject* GetValueAsClass(const QString& AName, const QMetaObject* ADefault) const = 0;
    virtual void* GetValueAsPointer(const QString& AName, void* ADefault) const = 0;
    virtual QString GetValueAsString(const QString& AName, const QString& ADefault) const = 0;
    virtual Currency GetValueAsCurrency(const QString& AName, Currency ADefault) const = 0;
    virtual Variant GetValueAsVariant(const QString& AName, const Variant& ADefault) const = 0;
    virtual QByteArray GetValueAsBytes(const QString& AName, const QByteArray& ADefault) const = 0;

    // Setters create a missing entry. Object, class and pointer go into their payload only:
    // a new entry then holds Null, a present one keeps its value.
    virtual void SetValueAsIdentifier(const QString& AName, qint64 AValue) = 0;
    virtual void SetValueAsInteger(const QString& AName, qint32 AValue) = 0;
    virtual void SetValueAsBoolean(const QString& AName, bool AValue) = 0;
    virtual void SetValueAsDateTime(const QString& AName, TDateTime AValue) = 0;
    virtual void SetValueAsDouble(const QString& AName, double AValue) = 0;
    virtual void SetValueAsObject(const QString& AName, QObject* AValue) = 0;
    virtual void SetValueAsClass(const QString& AName, const QMetaObject* AValue) = 0;
    virtual void SetValueAsPointer(const QString& AName, void* AValue) = 0;
    virtual void SetValueAsString(const QString& AName, const QString& AValue) = 0;
    virtual void SetValueAsCurrency(const QString& AName, Currency AValue) = 0;
    virtual void SetValueAsVariant(const QString& AName, const Variant& AValue) = 0;
    virtual void SetValueAsBytes(const QString& AName, const QByteArray& AValue) = 0;

    // the last value for a name wins
    virtual void Add(const QString& AName, const Variant& AValue) = 0;
    virtual void AddClass(const QString& AName, const QMetaObject* AValue) = 0;
    // adds each name with the value at the same index, by the value's kind (see TVarRec);
    // raises std::logic_error when the counts differ or a value has no kind
    virtual void AddValues(const QStringList& ANames, const QList<TVarRec>& AValues) = 0;
    // The first entry for a name wins: when the name is present nothing happens. The first
    // form adds a copy of the entry's value and payloads; the second hands the entry itself
    // over (AValue is then empty), and leaves it with the caller when the name is present.
    virtual void AddValue(const TnvNamedValue& AValue) = 0;
    virtual void AddValue(std::unique_ptr<TnvNamedValue>& AValue) = 0;
    virtual bool ValueExists(const QString& AName) const = 0;
    virtual TnvNamedValue* FindValue(const QString& AName) const = 0;
    // a JSON object of every name with its value as text; payloads are left out
    virtual Variant toJSON() const = 0;
    virtual void ClearValues() = 0;
    virtual int Count() const = 0;
    virtual void Clear() = 0;
};

using InvNamedValuesPtr = std::shared_ptr<InvNamedValues>;

} // namespace norvik
