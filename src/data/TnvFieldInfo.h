#pragma once

#include "TFieldType.h"

#include <QString>
#include <memory>

namespace norvik {

// One field of a table as the database describes it, and whether it is one of the system
// fields that every table of the framework carries (<prefix>ID, the creation and change
// stamps, the rights fields and the delete flags).
class TnvFieldInfo {
public:
    TnvFieldInfo(const QString& AFieldName, TFieldType ADataType, int ASize, const QString& ADefault,
                 bool AIsUnicode);

    const QString& FieldName() const { return FFieldName; }
    TFieldType DataType() const { return FDataType; }
    // characters for text fields
    int Size() const { return FSize; }
    const QString& ADefault() const { return FDefault; }
    bool IsUnicode() const { return FIsUnicode; }
    bool IsSystemField() const { return FIsSystemField; }

    // a system field begins with the table's prefix, any case, followed by one of the
    // system names, any case
    void EvalSystemFieldState(const QString& APrefix);
    void Assign(const TnvFieldInfo& Source);
    std::unique_ptr<TnvFieldInfo> Clone(const QString& APrefix) const;

    static bool IsSystemFieldName(const QString& AFieldName, const QString& APrefix);

private:
    QString FFieldName;
    TFieldType FDataType;
    int FSize;
    QString FDefault;
    bool FIsUnicode;
    bool FIsSystemField = false;
};

} // namespace norvik
