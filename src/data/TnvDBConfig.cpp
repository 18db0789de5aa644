#include "TnvDBConfig.h"

#include "AnsiCodePage.h"
#include "FieldTypeKinds.h"
#include "InvDBConnection.h"
#include "StringUtils.h"
#include "StructureText.h"
#include "TnvFieldInfo.h"
#include "TnvInsertUpdateHelper.h"
#include "TnvNamedValue.h"
#include "TnvParam.h"
#include "TnvTableInfo.h"
#include "ZLIBUtils.h"

#include <QMap>

namespace norvik {

namespace {

const QString ConfigTable = QStringLiteral("sysConfig");
const QString ContentsField = QStringLiteral("CFGContents");

bool IsMemoField(const TnvInsertUpdateHelper& AHelper) {
    const TnvFieldInfo* field = AHelper.TableInfo() ? AHelper.TableInfo()->FindField(ContentsField) : nullptr;
    return field && FieldTypeKinds::IsMemo(field->DataType());
}

} // namespace

std::shared_ptr<TnvNamedValues> TnvDBConfig::LoadConfig(InvDBConnection& AConn, const QString& ACode,
                                                        const QString& AUser) {
    auto values = TnvNamedValues::Create();
    const Variant content = AConn.PSQueryValueEx(
        QStringLiteral("SELECT CFGContents FROM sysConfig WHERE CFGCode='%s' AND CFGUser='%s'"),
        {ACode, AUser}, Variant(), false);
    ReadConfigText(ZLIBUtils::VariantToText(content), *values);
    return values;
}

void TnvDBConfig::ReadConfigText(const QString& AText, InvNamedValues& AValues) {
    for (const QString& line : StructureText::SplitLines(AText)) {
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 1)
            continue;
        AValues.Add(line.left(equals), Variant(UnescapeConfigValue(line.mid(equals + 1))));
    }
}

QString TnvDBConfig::ConfigText(const InvNamedValues& AValues) {
    // one line per name, whatever the spelling; the last value wins
    QMap<QString, QString> lines;
    QMap<QString, QString> spelling;
    for (const TnvNamedValue* value : AValues.GetValues()) {
        const QString key = value->Name().toUpper();
        spelling[key] = value->Name();
        lines[key] = value->AsString();
    }
    QStringList text;
    for (auto it = lines.cbegin(); it != lines.cend(); ++it)
        text.append(spelling.value(it.key()) + u'=' + it.value());
    return StructureText::JoinLines(text);
}

void TnvDBConfig::SaveConfig(InvDBConnection& AConn, const QString& ACode, const QString& AUser,
                             const InvNamedValues& AValues) {
    const QString text = ConfigText(AValues);
    const qint64 count =
        AConn
            .PSQueryValueEx(
                QStringLiteral(
                    "SELECT Count(*) As Anz FROM SYSCONFIG WHERE CFGUser = '%s' AND CFGCode = '%s'"),
                {AUser, ACode}, Variant(qint32(0)), false)
            .toInt64();
    TnvInsertUpdateHelper helper(AConn, ConfigTable);
    if (count == 0) {
        helper.SetUpdateKind(ukInsert);
        helper.AddField(QStringLiteral("CFGUser"), Variant(AUser), fkString, true);
        helper.AddField(QStringLiteral("CFGCode"), Variant(ACode), fkString, true);
    } else {
        helper.SetUpdateKind(ukModify);
        helper.SetKeyFields(QStringLiteral("CFGUser,CFGCode"));
        helper.SetKeyValues(u'\'' + AUser + QStringLiteral("','") + ACode + u'\'');
    }
    TnvParam* memo = IsMemoField(helper) ? helper.AddField(ContentsField) : nullptr;
    if (memo)
        memo->SetValue(Variant(QString(text).replace(u'\'', QStringLiteral("''"))));
    else
        helper.AddField(ContentsField, Variant(platform::AnsiCodePage::encode(text)), fkUnknown);
    helper.Execute(AConn, false, false);
}

} // namespace norvik
