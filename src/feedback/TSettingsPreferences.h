#pragma once

#include "InvNamedValues.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>

namespace norvik {
class InvDBConnection;
}

// The four texts of a therapist as the settings page shows them in its edits.
struct TTherapistTexts {
    QString TPTZusatzText1; // the name
    QString TPTZusatzText2; // the job title
    QString TPTDaMeFachgebiet;
    QString TPTDaMeCode; // the mailbox

    bool operator==(const TTherapistTexts&) const = default;
};

// The DaMe block of the installation: where the outbox lies, the optional program and the
// letter's template.
struct TDaMeSettings {
    QString ExportFolder;
    QString Executable;
    QString DOCXTemplate;

    bool operator==(const TDaMeSettings&) const = default;
};

// What the settings page holds apart from its widgets. The therapists are worked on in a list
// in memory, one element per therapist, a new one without TPTID; nothing is written before
// Save, which compares the list with the table and writes the differences.
class TSettingsPreferences {
public:
    static inline const QString ConfigCode = QStringLiteral("DAME");
    static inline const QString ConfigUser = QStringLiteral("SYSTEM");
    static inline const QString QuestionTitle = QStringLiteral("Weiterer Therapeut");
    static inline const QString QuestionText =
        QStringLiteral("Möchten Sie mehr als einen Therapeuten einrichten?");
    static inline const QString MoreTherapistsChoice = QStringLiteral("Ja, ich benötige weitere Therapeuten");
    static inline const QString NoMoreTherapistsChoice =
        QStringLiteral("Ups nein, ich brauche keine weiteren Therapeuten");

    // asks the user to pick one of the choices; the index of the chosen one, -1 for none
    using TAskChoice =
        std::function<int(const QString& ATitle, const QString& AText, const QStringList& AChoices)>;

    TSettingsPreferences();

    // the therapists ordered by name, at least one element, and the DaMe block
    void LoadPreferences(norvik::InvDBConnection& AConn);

    const QList<norvik::InvNamedValuesPtr>& TPTs() const { return FTPTs; }
    int TPTIndex() const { return FTPTIndex; }
    const TDaMeSettings& DaMe() const { return FDaMe; }

    // the texts of the shown element, and the edits' texts back into it
    TTherapistTexts ShowTPT() const;
    void StoreTPT(const TTherapistTexts& AEdits);
    // the name goes into the shown element while it is typed
    void SetTPTName(const QString& AName);

    // a therapist from the table, or a new one with a name; blanks count as a name here
    static bool IsFilled(const norvik::InvNamedValues& ATPT);
    bool CanPrev() const;
    bool CanNext() const;
    bool CanRemove() const;

    // Moves to the next therapist, adding a new one behind a filled last one. With a single
    // therapist the user is asked first whether there are more; false when nothing moved.
    bool NextClick(const TTherapistTexts& AEdits, const TAskChoice& AAsk);
    void PrevClick(const TTherapistTexts& AEdits);
    // drops the shown therapist from the list; its row goes only on Save
    void RemoveClick();

    // Writes the therapists and the DaMe block. A new therapist whose name is blank is not
    // written; rows of removed therapists are deleted. Database failures pass through, and
    // what was written before them stays written.
    void Save(norvik::InvDBConnection& AConn, const TTherapistTexts& AEdits, const TDaMeSettings& ADaMe);

    // writes the built-in letter template, as it stands, to the file; false with the reason
    static bool WriteTemplate(const QString& APath, QString& AError);

private:
    QList<norvik::InvNamedValuesPtr> FTPTs;
    int FTPTIndex = 0;
    TDaMeSettings FDaMe;

    norvik::InvNamedValues& Current() const { return *FTPTs.at(FTPTIndex); }
    bool IsLast() const { return FTPTIndex == FTPTs.size() - 1; }
    void ReadTherapists(norvik::InvDBConnection& AConn);
    void ReadDaMe(norvik::InvDBConnection& AConn);
    void SaveTherapist(norvik::InvDBConnection& AConn, norvik::InvNamedValues& ATPT, QSet<qint64>& AExisting);
};
