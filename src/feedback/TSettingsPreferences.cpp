#include "TSettingsPreferences.h"

#include "BuiltInResources.h"
#include "InsertUpdateRoutines.h"
#include "InvDBConnection.h"
#include "TnvDBConfig.h"
#include "TnvInsertUpdateHelper.h"
#include "TnvNamedValues.h"
#include "TnvRecordReader.h"

#include <QSaveFile>

using namespace norvik;

namespace {

const QString TherapistTable = QStringLiteral("tblTherapeuten");
const QString IDField = QStringLiteral("TPTID");
const QString NameField = QStringLiteral("TPTZusatzText1");
const QString JobTitleField = QStringLiteral("TPTZusatzText2");
const QString SpecialtyField = QStringLiteral("TPTDaMeFachgebiet");
const QString MailboxField = QStringLiteral("TPTDaMeCode");

const QStringList& TextFields() {
    static const QStringList fields{NameField, JobTitleField, SpecialtyField, MailboxField};
    return fields;
}

QList<Variant> TextValues(const InvNamedValues& ATPT) {
    QList<Variant> values;
    for (const QString& field : TextFields())
        values.append(Variant(ATPT.GetAsString(field)));
    return values;
}

} // namespace

TSettingsPreferences::TSettingsPreferences()
    : FTPTs{TnvNamedValues::Create()} {}

void TSettingsPreferences::LoadPreferences(InvDBConnection& AConn) {
    ReadTherapists(AConn);
    ReadDaMe(AConn);
}

// the rows as the feedback wizard offers them, so that both pages know the same therapists
void TSettingsPreferences::ReadTherapists(InvDBConnection& AConn) {
    QList<InvNamedValuesPtr> rows;
    AConn.PSForEachRecord(QStringLiteral("SELECT * FROM tblTherapeuten ORDER BY TPTZusatzText1"),
                          [&rows](TnvDataSet& ARow) { rows.append(TnvRecordReader::FromDataSet(ARow)); });
    if (rows.isEmpty())
        rows.append(TnvNamedValues::Create());
    FTPTs = rows;
    FTPTIndex = 0;
}

void TSettingsPreferences::ReadDaMe(InvDBConnection& AConn) {
    const auto config = TnvDBConfig::LoadConfig(AConn, ConfigCode, ConfigUser);
    FDaMe.ExportFolder = config->GetAsString(QStringLiteral("ExportFolder"));
    FDaMe.Executable = config->GetAsString(QStringLiteral("Executable"));
    FDaMe.DOCXTemplate = config->GetAsString(QStringLiteral("DOCXTemplate"));
}

TTherapistTexts TSettingsPreferences::ShowTPT() const {
    const InvNamedValues& tpt = Current();
    return {tpt.GetAsString(NameField), tpt.GetAsString(JobTitleField), tpt.GetAsString(SpecialtyField),
            tpt.GetAsString(MailboxField)};
}

void TSettingsPreferences::StoreTPT(const TTherapistTexts& AEdits) {
    InvNamedValues& tpt = Current();
    tpt.SetValueAsString(NameField, AEdits.TPTZusatzText1);
    tpt.SetValueAsString(JobTitleField, AEdits.TPTZusatzText2);
    tpt.SetValueAsString(SpecialtyField, AEdits.TPTDaMeFachgebiet);
    tpt.SetValueAsString(MailboxField, AEdits.TPTDaMeCode);
}

void TSettingsPreferences::SetTPTName(const QString& AName) {
    Current().SetValueAsString(NameField, AName);
}

bool TSettingsPreferences::IsFilled(const InvNamedValues& ATPT) {
    return ATPT.GetAsIdentifier(IDField) != 0 || !ATPT.GetAsString(NameField).isEmpty();
}

bool TSettingsPreferences::CanPrev() const {
    return FTPTIndex > 0;
}

bool TSettingsPreferences::CanNext() const {
    return !IsLast() || IsFilled(Current());
}

bool TSettingsPreferences::CanRemove() const {
    return FTPTs.size() >= 2;
}

bool TSettingsPreferences::NextClick(const TTherapistTexts& AEdits, const TAskChoice& AAsk) {
    if (FTPTs.size() == 1 &&
        AAsk(QuestionTitle, QuestionText, {MoreTherapistsChoice, NoMoreTherapistsChoice}) != 0)
        return false;
    StoreTPT(AEdits);
    if (IsLast() && IsFilled(Current()))
        FTPTs.append(TnvNamedValues::Create());
    // an unfilled last therapist has no one behind it
    if (IsLast())
        return false;
    ++FTPTIndex;
    return true;
}

void TSettingsPreferences::PrevClick(const TTherapistTexts& AEdits) {
    StoreTPT(AEdits);
    if (FTPTIndex > 0)
        --FTPTIndex;
}

void TSettingsPreferences::RemoveClick() {
    // the page always shows one therapist
    if (!CanRemove())
        return;
    FTPTs.removeAt(FTPTIndex);
    if (FTPTIndex >= FTPTs.size())
        FTPTIndex = int(FTPTs.size()) - 1;
}

void TSettingsPreferences::Save(InvDBConnection& AConn, const TTherapistTexts& AEdits,
                                const TDaMeSettings& ADaMe) {
    StoreTPT(AEdits);
    QSet<qint64> existing;
    AConn.PSForEachRecord(QStringLiteral("SELECT TPTID FROM tblTherapeuten"), [&existing](TnvDataSet& ARow) {
        existing.insert(ARow.Fields(0).Value().toInt64());
    });
    for (const InvNamedValuesPtr& tpt : std::as_const(FTPTs))
        SaveTherapist(AConn, *tpt, existing);
    existing.remove(0);
    for (const qint64 id : std::as_const(existing))
        TnvInsertUpdateHelper::CreateAndDelete(AConn, TherapistTable, IDField, QString::number(id), true)
            ->Execute();
    auto config = TnvNamedValues::Create();
    config->SetValueAsString(QStringLiteral("ExportFolder"), ADaMe.ExportFolder);
    config->SetValueAsString(QStringLiteral("Executable"), ADaMe.Executable);
    config->SetValueAsString(QStringLiteral("DOCXTemplate"), ADaMe.DOCXTemplate);
    TnvDBConfig::SaveConfig(AConn, ConfigCode, ConfigUser, *config);
    FDaMe = ADaMe;
}

// A new therapist takes the number of its new row, so that saving again updates that row.
void TSettingsPreferences::SaveTherapist(InvDBConnection& AConn, InvNamedValues& ATPT,
                                         QSet<qint64>& AExisting) {
    const qint64 id = ATPT.GetAsIdentifier(IDField);
    if (id != 0) {
        UpdateRecord(AConn, TherapistTable, IDField, QString::number(id), TextFields(), TextValues(ATPT));
        AExisting.remove(id);
        return;
    }
    if (ATPT.GetAsString(NameField).trimmed().isEmpty())
        return;
    ATPT.SetValueAsIdentifier(IDField, InsertRecord(AConn, TherapistTable, TextFields(), TextValues(ATPT)));
}

bool TSettingsPreferences::WriteTemplate(const QString& APath, QString& AError) {
    QSaveFile file(APath);
    if (file.open(QIODevice::WriteOnly) && file.write(BuiltInResources::feedbackTemplate()) >= 0 &&
        file.commit())
        return true;
    AError = file.errorString();
    return false;
}
