#pragma once

#include "CaseInsensitiveComparer.h"
#include "InvNamedValues.h"

#include <memory>
#include <unordered_map>

namespace norvik {

// The named-value list. It owns its entries; an entry keeps the spelling of the name it
// was first created with. The order of the entries is the hash table's: nothing may rely
// on it.
class TnvNamedValues : public InvNamedValues {
public:
    TnvNamedValues() = default;
    TnvNamedValues(const TnvNamedValues&) = delete;
    TnvNamedValues& operator=(const TnvNamedValues&) = delete;

    static std::shared_ptr<TnvNamedValues> Create();
    // a list of the names with the values at the same index (see AddValues); raises
    // std::logic_error when the counts differ
    static std::shared_ptr<TnvNamedValues> Create(const QStringList& ANames, const QList<TVarRec>& AValues);

    TnvNamedValue* GetNamedValue(const QString& AName) const override;
    TnvNamedValue* GetValue(const QString& AName) const override;
    void SetValue(const QString& AName, const Variant& AValue) override;
    QList<TnvNamedValue*> GetValues() const override;
    bool GetIsNull(const QString& AName) const override;

    qint64 GetValueAsIdentifier(const QString& AName) const override;
    qint32 GetValueAsInteger(const QString& AName) const override;
    bool GetValueAsBoolean(const QString& AName) const override;
    TDateTime GetValueAsDateTime(const QString& AName) const override;
    double GetValueAsDouble(const QString& AName) const override;
    QObject* GetValueAsObject(const QString& AName) const override;
    const QMetaObject* GetValueAsClass(const QString& AName) const override;
    void* GetValueAsPointer(const QString& AName) const override;
    QString GetValueAsString(const QString& AName) const override;
    Currency GetValueAsCurrency(const QString& AName) const override;
    Variant GetValueAsVariant(const QString& AName) const override;
    QByteArray GetValueAsBytes(const QString& AName) const override;

    qint64 GetAsIdentifier(const QString& AName) const override;
    qint32 GetAsInteger(const QString& AName) const override;
    bool GetAsBoolean(const QString& AName) const override;
    TDateTime GetAsDateTime(const QString& AName) const override;
    double GetAsDouble(const QString& AName) const override;
    QObject* GetAsObject(const QString& AName) const override;
    const QMetaObject* GetAsClass(const QString& AName) const override;
    void* GetAsPointer(const QString& AName) const override;
    QString GetAsString(const QString& AName) const override;
    Currency GetAsCurrency(const QString& AName) const override;
    Variant GetAsVariant(const QString& AName) const override;
    QByteArray GetAsBytes(const QString& AName) const override;

    qint64 GetValueAsIdentifier(const QString& AName, qint64 ADefault) const override;
    qint32 GetValueAsInteger(const QString& AName, qint32 ADefault) const override;
    bool GetValueAsBoolean(const QString& AName, bool ADefault) const override;
    TDateTime GetValueAsDateTime(const QString& AName, TDateTime ADefault) const override;
    double GetValueAsDouble(const QString& AName, double ADefault) const override;
    QObject* GetValueAsObject(const QString& AName, QObject* ADefault) const override;
    const QMetaObject* GetValueAsClass(const QString& AName, const QMetaObject* ADefault) const override;
    void* GetValueAsPointer(const QString& AName, void* ADefault) const override;
    QString GetValueAsString(const QString& AName, const QString& ADefault) const override;
    Currency GetValueAsCurrency(const QString& AName, Currency ADefault) const override;
    Variant GetValueAsVariant(const QString& AName, const Variant& ADefault) const override;
    QByteArray GetValueAsBytes(const QString& AName, const QByteArray& ADefault) const override;

    void SetValueAsIdentifier(const QString& AName, qint64 AValue) override;
    void SetValueAsInteger(const QString& AName, qint32 AValue) override;
    void SetValueAsBoolean(const QString& AName, bool AValue) override;
    void SetValueAsDateTime(const QString& AName, TDateTime AValue) override;
    void SetValueAsDouble(const QString& AName, double AValue) override;
    void SetValueAsObject(const QString& AName, QObject* AValue) override;
    void SetValueAsClass(const QString& AName, const QMetaObject* AValue) override;
    void SetValueAsPointer(const QString& AName, void* AValue) override;
    void SetValueAsString(const QString& AName, const QString& AValue) override;
    void SetValueAsCurrency(const QString& AName, Currency AValue) override;
    void SetValueAsVariant(const QString& AName, const Variant& AValue) override;
    void SetValueAsBytes(const QString& AName, const QByteArray& AValue) override;

    void Add(const QString& AName, const Variant& AValue) override;
    void AddClass(const QString& AName, const QMetaObject* AValue) override;
    void AddValues(const QStringList& ANames, const QList<TVarRec>& AValues) override;
    void AddValue(const TnvNamedValue& AValue) override;
    void AddValue(std::unique_ptr<TnvNamedValue>& AValue) override;
    bool ValueExists(const QString& AName) const override;
    TnvNamedValue* FindValue(const QString& AName) const override;
    Variant toJSON() const override;
    void ClearValues() override;
    int Count() const override;
    void Clear() override;

    // no error for a missing name
    void Delete(const QString& AName);
    // creates the entry with a Null value when missing
    void AddInterface(const QString& AName, std::shared_ptr<IInterface> AValue);
    // the interface of the entry as T, or nullptr when it has none of that type; raises
    // Exception when the name is missing
    template <class T> std::shared_ptr<T> GetInterface(const QString& AName) const {
        return GetValue(AName)->Supports<T>();
    }
    // All names run together, then cut by as many characters at the front as the
    // separator is long; the separator itself never appears. Callers rely on exactly this.
    QString GetNames(const QString& ASeparator) const;

private:
    using Cache = std::unordered_map<QString, std::unique_ptr<TnvNamedValue>, CaseInsensitiveComparer,
                                     CaseInsensitiveComparer>;
    Cache FCache;

    // the entry of that name, created with a Null value when missing
    TnvNamedValue& ensureEntry(const QString& AName);
    void addElement(const QString& AName, const TVarRec& AValue);
};

} // namespace norvik
