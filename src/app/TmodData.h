#pragma once

#include <QString>
#include <memory>
#include <utility>
#include <vector>

namespace norvik {
class InvDBConnection;
class TnvDBConnection;
} // namespace norvik

// Owns the one database connection of the process and knows where the program's files lie:
// the settings file and the database in the folder "quillnote" of the machine-wide
// application data folder, shared by all users of the machine. The database is opened on the
// first request for the connection; at that moment the structure is brought up to date if
// the structure compiled into the program has changed since the last check, or if the
// database file is missing.
class TmodData {
public:
    TmodData();
    ~TmodData();
    TmodData(const TmodData&) = delete;
    TmodData& operator=(const TmodData&) = delete;

    // the data module of the process: the one made last, while it lives
    static TmodData* Instance();

    // opens the database on the first call; nullptr if that failed
    norvik::InvDBConnection* GetConnection();
    // true if all went well; a failure is silent and the check runs again on the next start
    bool OpenDatabase();

    // the text of a built-in resource, each line ended by CR LF whatever the resource holds
    static QString LoadResourceText(const QString& AName);
    // the bytes of a text as LoadResourceText reads them: decoded, each line ended by CR LF
    static QString LinesText(const QByteArray& ABytes);
    // lookup3 "hashlittle" over the UTF-16 bytes of the text, as eight upper-case hex digits
    static QString StructureHash(const QString& AText);
    static QString DataFolder();
    static QString SettingsPath();
    static QString DatabasePath();

    // whether the last OpenDatabase ran the structure check, and the hash it computed
    bool StructureChecked() const { return FStructureChecked; }
    const QString& Hash() const { return FHash; }

    // the specialties of the Austrian contract partner list: key and text
    const std::vector<std::pair<QString, QString>> slTPTFachgebiete;

private:
    std::unique_ptr<norvik::TnvDBConnection> FConnection;
    norvik::InvDBConnection* FConnectionIntf = nullptr;
    bool FStructureChecked = false;
    QString FHash;

    void ConnectAndCheck(const QString& ADatabasePath, const QString& AStructure, bool ACheckNeeded);
};
