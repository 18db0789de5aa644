#pragma once

#include "InvNamedValues.h"
#include "TFeedbackWizardState.h"
#include "TmodData.h"

#include <QString>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

namespace norvik {
class InvDBConnection;
}

// A new machine-wide database for each test, made as the program makes it on its first start,
// and a wizard that shows a complete feedback: patient Eva Muster, physician Dr. Martina
// Steiner, therapist Anna Berger.
class FeedbackDatabaseTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    norvik::InvDBConnection& Conn() { return *FConn; }
    qint64 Count(const QString& ATableName);
    // the first row of the statement; an empty list when there is none
    norvik::InvNamedValuesPtr Row(const QString& ASQL);

    static void FillCompleteFeedback(TFeedbackWizardState& AState);

    TFeedbackWizardState state;

private:
    std::unique_ptr<TmodData> FModule;
    norvik::InvDBConnection* FConn = nullptr;
};

void PrintTo(const QString& AText, std::ostream* AOut);
