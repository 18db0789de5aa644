#pragma once

#include "TnvDataSetFieldCache.h"
#include "TnvField.h"
#include "TnvParams.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace norvik {

// A statement with its parameters and, once open, a forward-only result: the current row's
// values stand in the fields, Next moves on until Eof. What a connection's query operations
// give the caller, who frees it.
class TnvDataSet {
public:
    TnvDataSet()
        : FFieldCache(*this) {}
    virtual ~TnvDataSet() = default;
    TnvDataSet(const TnvDataSet&) = delete;
    TnvDataSet& operator=(const TnvDataSet&) = delete;

    const QString& SQL() const { return FSql; }
    void SetSQL(const QString& sql);
    TnvParams& Params() { return FParams; }

    // runs the statement and reads its first row
    virtual void Open() = 0;
    // runs the statement without reading rows; yields the rows affected
    virtual int ExecSQL() = 0;
    virtual void Next() = 0;
    virtual void Close();

    bool Active() const { return FActive; }
    bool Eof() const { return FEof; }
    // open without any row
    bool IsEmpty() const { return FActive && FEof && FRowNumber == 0; }
    int RowsAffected() const { return FRowsAffected; }

    int FieldCount() const { return static_cast<int>(FFields.size()); }
    TnvField& Fields(int index) const { return *FFields.at(index); }
    TnvField* FindField(const QString& fieldName) { return FFieldCache.FindField(fieldName); }
    // raises EDBConnectionException when the field is absent
    TnvField& FieldByName(const QString& fieldName);
    QStringList FieldNames() const;

protected:
    std::vector<std::unique_ptr<TnvField>> FFields;
    bool FActive = false;
    bool FEof = true;
    int FRowNumber = 0;
    int FRowsAffected = 0;

    // after the fields were made anew
    void FieldsChanged() { FFieldCache.RebuildCache(); }

private:
    QString FSql;
    TnvParams FParams;
    TnvDataSetFieldCache FFieldCache;
};

} // namespace norvik
