#pragma once

#include "TFieldType.h"
#include "Variant.h"

#include <QString>

namespace norvik {

// One positional parameter of a statement: its place in the text is a "?", its value is
// bound when the statement runs.
class TnvParam {
public:
    TnvParam(const QString& name, TFieldType dataType, const Variant& value = Variant())
        : FName(name)
        , FDataType(dataType)
        , FValue(value) {}

    const QString& Name() const { return FName; }
    TFieldType DataType() const { return FDataType; }
    void SetDataType(TFieldType dataType) { FDataType = dataType; }
    const Variant& Value() const { return FValue; }
    void SetValue(const Variant& value) { FValue = value.stripped(); }
    bool IsNull() const { return FValue.isEmpty(); }
    // blob, graphic and the other binary types
    bool IsBlob() const;
    // the value as plain text, as a change block records it
    QString AsText() const;

private:
    QString FName;
    TFieldType FDataType;
    Variant FValue;
};

} // namespace norvik
