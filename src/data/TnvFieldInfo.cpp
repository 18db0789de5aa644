#include "TnvFieldInfo.h"

#include "FieldTypeKinds.h"
#include "NameHash.h"

#include <array>

namespace norvik {

namespace {

constexpr int PrefixLength = 3;

// The hashes of ID, AnlageAm, AnlageVon, AenderungAm, AenderungVon, Owner, Read, Update,
// Delete, Deleted and VisibleState: one hash of the field name's tail decides, instead of
// eleven string comparisons.
const std::array<quint32, 11>& systemNameHashes() {
    static const std::array<quint32, 11> hashes = {
        NameHash(QStringLiteral("ID")),           NameHash(QStringLiteral("AnlageAm")),
        NameHash(QStringLiteral("AnlageVon")),    NameHash(QStringLiteral("AenderungAm")),
        NameHash(QStringLiteral("AenderungVon")), NameHash(QStringLiteral("Owner")),
        NameHash(QStringLiteral("Read")),         NameHash(QStringLiteral("Update")),
        NameHash(QStringLiteral("Delete")),       NameHash(QStringLiteral("Deleted")),
        NameHash(QStringLiteral("VisibleState"))};
    return hashes;
}

} // namespace

TnvFieldInfo::TnvFieldInfo(const QString& AFieldName, TFieldType ADataType, int ASize,
                           const QString& ADefault, bool AIsUnicode)
    : FFieldName(AFieldName)
    , FDataType(ADataType)
    , FSize(ASize)
    , FDefault(ADefault)
    , FIsUnicode(AIsUnicode || FieldTypeKinds::IsWide(ADataType)) {}

bool TnvFieldInfo::IsSystemFieldName(const QString& AFieldName, const QString& APrefix) {
    if (AFieldName.left(PrefixLength).compare(APrefix, Qt::CaseInsensitive) != 0)
        return false;
    const quint32 hash = NameHash(AFieldName.mid(PrefixLength));
    const auto& hashes = systemNameHashes();
    return std::find(hashes.begin(), hashes.end(), hash) != hashes.end();
}

void TnvFieldInfo::EvalSystemFieldState(const QString& APrefix) {
    FIsSystemField = IsSystemFieldName(FFieldName, APrefix);
}

void TnvFieldInfo::Assign(const TnvFieldInfo& Source) {
    *this = Source;
}

std::unique_ptr<TnvFieldInfo> TnvFieldInfo::Clone(const QString& APrefix) const {
    auto clone = std::make_unique<TnvFieldInfo>(*this);
    clone->EvalSystemFieldState(APrefix);
    clone->FIsUnicode = FIsUnicode || FieldTypeKinds::IsWide(FDataType);
    return clone;
}

} // namespace norvik
