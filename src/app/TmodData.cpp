#include "TmodData.h"

#include "HashLittle.h"
#include "PlatformPaths.h"
#include "StructureText.h"
#include "TnvDBConnection.h"
#include "TnvDBUpdate.h"
#include "ZLIBUtils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <stdexcept>

using namespace norvik;

namespace {

const QString StructureResource = QStringLiteral("DBSTRUC");
const QString StructureKey = QStringLiteral("Database/Structure");
// what the program's forms ask for the connection, as they keep none
TmodData* ProcessDataModule = nullptr;

std::vector<std::pair<QString, QString>> Fachgebiete() {
    return {
        {QStringLiteral("13"), QStringLiteral("Facharzt für Physikalische Medizin (13)")},
        {QStringLiteral("63"), QStringLiteral("PhysiotherapeutIn (63)")},
        {QStringLiteral("64"), QStringLiteral("MasseurIn (64)")},
        {QStringLiteral("66"), QStringLiteral("LogopädIn (66)")},
        {QStringLiteral("72"), QStringLiteral("PsychotherapeutIn (72)")},
        {QStringLiteral("75"), QStringLiteral("ErgotherapeutIn (75)")},
        {QStringLiteral("85"), QStringLiteral("Selbständiges Ambulatorium (85)")},
        {QStringLiteral("86"), QStringLiteral("Selbständiges Ambulatorium für ZMK (86)")},
        {QStringLiteral("91"), QStringLiteral("Selbständiges Ambulatorium für physikalische Medizin (91)")},
        {QStringLiteral("92"), QStringLiteral("Hauskrankenpflegeorganisation (92)")},
        {QStringLiteral("99"), QStringLiteral("Andere Vertragspartner (99)")},
    };
}

// a file of the data folder; a name the platform cannot take is refused
QString DataFile(const QString& AName) {
    const QString path = QDir(TmodData::DataFolder()).filePath(AName);
    if (path.contains(QChar(u'\0')))
        throw std::invalid_argument("invalid character in a path of the data folder");
    return QDir::cleanPath(path);
}

} // namespace

TmodData::TmodData()
    : slTPTFachgebiete(Fachgebiete()) {
    ProcessDataModule = this;
}

TmodData::~TmodData() {
    if (ProcessDataModule == this)
        ProcessDataModule = nullptr;
    FConnectionIntf = nullptr;
    FConnection.reset();
}

TmodData* TmodData::Instance() {
    return ProcessDataModule;
}

QString TmodData::DataFolder() {
    return QDir(platform::commonAppDataDir()).filePath(QStringLiteral("quillnote"));
}

QString TmodData::SettingsPath() {
    return DataFile(QStringLiteral("quillnote.ini"));
}

QString TmodData::DatabasePath() {
    return DataFile(QStringLiteral("quillnote.s3db"));
}

InvDBConnection* TmodData::GetConnection() {
    if (!FConnection)
        OpenDatabase();
    return FConnectionIntf;
}

QString TmodData::LoadResourceText(const QString& AName) {
    QFile resource(QStringLiteral(":/") + AName);
    if (!resource.open(QIODevice::ReadOnly))
        return {};
    return LinesText(resource.readAll());
}

QString TmodData::LinesText(const QByteArray& ABytes) {
    return StructureText::JoinLines(StructureText::SplitLines(ZLIBUtils::DecodeText(ABytes)));
}

QString TmodData::StructureHash(const QString& AText) {
    const quint32 hash = hashlittle(AText.utf16(), size_t(AText.size()) * sizeof(char16_t), 0);
    return QStringLiteral("%1").arg(hash, 8, 16, QLatin1Char('0')).toUpper();
}

bool TmodData::OpenDatabase() {
    const QString settingsPath = SettingsPath();
    const QString databasePath = DatabasePath();
    QDir().mkpath(QFileInfo(settingsPath).absolutePath());
    const QString structure = LoadResourceText(StructureResource);
    FHash = StructureHash(structure);
    QSettings settings(settingsPath, QSettings::IniFormat);
    FStructureChecked =
        settings.value(StructureKey, QString()).toString() != FHash || !QFile::exists(databasePath);
    try {
        ConnectAndCheck(databasePath, structure, FStructureChecked);
        if (FStructureChecked) {
            settings.setValue(StructureKey, FHash);
            settings.sync();
            if (settings.status() != QSettings::NoError)
                return false;
        }
        return true;
    } catch (const std::exception&) {
        // silent: without the stored hash the next start checks again
        return false;
    }
}

void TmodData::ConnectAndCheck(const QString& ADatabasePath, const QString& AStructure, bool ACheckNeeded) {
    FConnection = std::make_unique<TnvDBConnection>();
    FConnection->SetAliasName(QStringLiteral("_dbData"));
    FConnection->InitDirectSQLiteDatabase(ADatabasePath);
    FConnection->SetConnected(true);
    FConnectionIntf = FConnection.get();
    if (!ACheckNeeded)
        return;
    TnvDBUpdate update;
    update.Connection = FConnectionIntf;
    update.Structure = StructureText::SplitLines(AStructure);
    if (!AStructure.trimmed().isEmpty())
        update.PerformCheck();
}
