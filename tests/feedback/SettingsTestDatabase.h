#pragma once

#include "TSettingsPreferences.h"
#include "TmodData.h"

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

// The program's database in the test sandbox, with tblTherapeuten and the DaMe block emptied
// before each test.
class SettingsTestDatabase : public ::testing::Test {
protected:
    TmodData Data;

    void SetUp() override;

    norvik::InvDBConnection& Conn();
    // a row of tblTherapeuten with the four texts; gives its TPTID
    qint64 AddTherapist(const QString& AName, const QString& AJobTitle = {}, const QString& ASpecialty = {},
                        const QString& AMailbox = {});
    // every row as "TPTID|name|job title|specialty|mailbox", ordered by TPTID
    QStringList TherapistRows();
    QStringList TherapistNames();
    TDaMeSettings StoredDaMe();
    void StoreDaMe(const TDaMeSettings& ADaMe);
};
