#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>
#include <memory>

class QObject;

namespace norvik {

class Variant;

enum TJSONVariantKind : quint8 { jvUndefined = 0, jvObject = 1, jvArray = 2 };

// The record behind a JSON variant: an object (names parallel to values) or an array.
// Copies share the two arrays until one of them grows, so an element overwritten through
// one copy is seen through the other; a kind, once decided, never changes; keys are not
// unique and lookup finds the first.
struct TJSONVariantData {
    quint8 _Align = 0;
    TJSONVariantKind VKind = jvUndefined;
    int VCount = 0;
    std::shared_ptr<QList<QString>> Names;
    std::shared_ptr<QList<Variant>> Values;

    // zeroes everything
    void Init();
    // Init, then FromJSON; a text that gave Null makes an empty object, any other value
    // that is no object or array resets the record
    void Init(const QString& json);
    // an array of the given values
    void InitFrom(const QList<Variant>& values);
    void Clear();

    // the nested object of that key, or nullptr
    TJSONVariantData* Data(const QString& name);
    // the nested object at a dotted path, created on the way where needed
    TJSONVariantData* EnsureData(const QString& path);
    // appends a new empty JSON variant to an array and gives its record
    TJSONVariantData* AddItem();
    void AddValue(const Variant& value);
    void AddNameValue(const QString& name, const Variant& value);
    // index of the key (exact in letter case) or -1
    int NameIndex(const QString& name) const;
    void SetPath(const QString& path, const Variant& value);
    // Value[Name] := value: replaces a present key, appends otherwise
    void SetValue(const QString& name, const Variant& value);
    // the element of a key; nullptr when absent
    Variant* ValueOf(const QString& name);
    const Variant* ValueOf(const QString& name) const;

    // parses into this record; true only when the top value is an object or an array
    bool FromJSON(const QString& json);
    QString ToJSON() const;

    // fills the Qt properties of an object from this record; false when a value does not fit
    bool ToObject(QObject* instance) const;
    // creates an object of the class named by the key "ClassName" and fills it; nullptr when
    // no such class is registered
    QObject* ToNewObject() const;

    const QString& NameAt(int index) const;
    const Variant& ValueAt(int index) const;
    Variant& ValueAt(int index);

    // drops the spare length that appending left behind
    void CutToCount();

    bool operator==(const TJSONVariantData& other) const;

private:
    void growFor(int count);
};

} // namespace norvik
