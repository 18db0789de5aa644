#include "TRepChangeBlockWriter.h"

#include "BlobCompression.h"
#include "DBExceptions.h"
#include "InvDBConnection.h"
#include "TDateTimeUtils.h"
#include "TRepCustomChangeBlock.h"
#include "TnvDBGlobals.h"
#include "TnvInsertUpdateHelper.h"
#include "TnvNextNumberCache.h"

namespace norvik {

namespace {

const QString ChangeBlockTable = QStringLiteral("sysREChangeBlocks");
constexpr int IDBatch = 10;
constexpr qint64 SystemRange = 10000000;
constexpr int DefaultCompressionLevel = 6;

// system and day of the block in one number: SSSSYYYYMMDD, for filtering by both at once
qint64 filterNumber(qint64 ASystem, const QDate& ADate) {
    return ASystem * 100000000 + ADate.year() * 10000 + ADate.month() * 100 + ADate.day();
}

} // namespace

bool TRepChangeBlockWriter::Save(InvDBConnection& AConn, const TReplicationBaseClass& ARep,
                                 TnvNextNumberCache& ACache) {
    const auto* block = dynamic_cast<const TRepCustomChangeBlock*>(&ARep);
    if (!block)
        throw EnvReplicationException(
            QStringLiteral("ARep is no TRepCustomChangeBlock. Please contact your administrator!"));
    const qint64 id = ACache.GetNextNumber(AConn, AConn.PSSessionName(), ChangeBlockTable, 0, IDBatch);
    const qint64 system = id / SystemRange;
    const QDate date = TDateTimeUtils::toDate(block->Timestamp);
    const QByteArray stream = block->SaveToStream();

    TnvInsertUpdateHelper helper(AConn, ChangeBlockTable);
    helper.SetUpdateKind(ukInsert);
    helper.AddField(QStringLiteral("RECID"), Variant(id), fkInteger);
    helper.AddField(QStringLiteral("RECTimeStamp"), Variant::fromDate(block->Timestamp), fkDateTime);
    helper.AddField(QStringLiteral("RECProcessed"), Variant(QStringLiteral("J")), fkString);
    helper.AddField(QStringLiteral("USRID"), Variant(block->User), fkInteger);
    helper.AddField(QStringLiteral("RECSystem"), Variant(system), fkInteger);
    helper.AddField(QStringLiteral("RECTemp"), Variant(0), fkInteger);
    helper.AddField(QStringLiteral("RECFilter1"), Variant(filterNumber(system, date)), fkInteger);
    helper.AddField(QStringLiteral("RECLocation"), Variant(block->Location), fkString);
    helper.AddField(QStringLiteral("RECName"), Variant(block->Name), fkString);
    helper.AddField(QStringLiteral("RECAction"), Variant(block->Action), fkString);
    helper.AddFieldMemory(QStringLiteral("RECData"),
                          TnvDBGlobals::CompressChangeBlocks
                              ? BlobCompression::Compress(stream, DefaultCompressionLevel)
                              : stream,
                          ftBlob);
    helper.AddField(QStringLiteral("RECYear"), Variant(date.year()), fkInteger);
    helper.AddField(QStringLiteral("RECMonth"), Variant(date.month()), fkInteger);
    helper.AddField(QStringLiteral("RECDay"), Variant(date.day()), fkInteger);
    return helper.Execute(AConn, false, false);
}

} // namespace norvik
