#pragma once

#include "TFieldType.h"
#include "Variant.h"

#include <QByteArray>
#include <QString>

namespace norvik {

// A field of a data set: its name and declared type, and its value in the current row.
class TnvField {
public:
    TnvField(const QString& fieldName, TFieldType dataType, int size)
        : FFieldName(fieldName)
        , FDataType(dataType)
        , FSize(size) {}

    const QString& FieldName() const { return FFieldName; }
    TFieldType DataType() const { return FDataType; }
    int Size() const { return FSize; }
    bool IsBlob() const;

    const Variant& Value() const { return FValue; }
    void SetValue(const Variant& value) { FValue = value; }
    bool IsNull() const { return FValue.isEmpty(); }

    // a null reads as the type's zero
    QString AsString() const;
    qint32 AsInteger() const;
    qint64 AsLargeInt() const;
    double AsFloat() const;
    TDateTime AsDateTime() const;
    bool AsBoolean() const;
    QByteArray AsBytes() const;

private:
    QString FFieldName;
    TFieldType FDataType;
    int FSize;
    Variant FValue;
};

} // namespace norvik
