#pragma once

#include <QFlags>
#include <QString>
#include <memory>

namespace norvik {

enum TIndexOption {
    ixPrimary = 0x01,
    ixUnique = 0x02,
    ixDescending = 0x04,
    ixCaseInsensitive = 0x08,
    ixExpression = 0x10,
    ixNonMaintained = 0x20,
};
Q_DECLARE_FLAGS(TIndexOptions, TIndexOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(TIndexOptions)

// One index of a table: its name, its fields separated by ";", and its options.
class TnvIndexInfo {
public:
    TnvIndexInfo(const QString& AIndexName, const QString& Fields, TIndexOptions Options)
        : FIndexName(AIndexName)
        , FFields(Fields)
        , FOptions(Options) {}

    const QString& IndexName() const { return FIndexName; }
    const QString& Fields() const { return FFields; }
    TIndexOptions Options() const { return FOptions; }

    void Assign(const TnvIndexInfo& Source) { *this = Source; }
    std::unique_ptr<TnvIndexInfo> Clone() const { return std::make_unique<TnvIndexInfo>(*this); }

private:
    QString FIndexName;
    QString FFields;
    TIndexOptions FOptions;
};

} // namespace norvik
