#pragma once

#include "FixedClock.h"
#include "InvNamedValues.h"
#include "ScriptedDialogs.h"
#include "TFeedbackWizardForm.h"
#include "TestEnvironment.h"
#include "TmodData.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTemporaryFile>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace norvik {
class InvDBConnection;
}

// A fresh sandbox database with the outbox set, a user at every dialog, a fixed clock, and
// the wizard as a user sees it: found by the names of its controls, typed into and clicked.
class WizardFormFixture : public testing::Test {
protected:
    // the feedback every test types: patient Eva Muster, physician Dr. Martina Steiner
    static inline const QString ValidSVNr = QStringLiteral("1238150580");

    testsupport::FixedClock Clock{"2026-03-03 14:05:00"};
    testsupport::TempDir Outbox;
    testsupport::ScriptedDialogs Dialogs;
    std::unique_ptr<TmodData> Data;
    QPointer<TFeedbackWizardForm> Form;

    void SetUp() override;
    void TearDown() override;

    static void StartWith(QStringList AArguments);
    void SetExportFolder(const QString& AFolder);
    TFeedbackWizardForm& Open(const QString& AQuestions = {}, const QString& AContent = {});
    void Show(QWidget& AWindow);

    norvik::InvDBConnection& Conn() { return *Data->GetConnection(); }
    qint64 Count(const QString& ATableName);
    norvik::InvNamedValuesPtr Row(const QString& ASQL);
    qint64 AddTherapist(const QString& AName, const QString& AJobTitle, const QString& AField,
                        const QString& AMailbox);

    template <class T> T& Child(const QString& AName) {
        T* child = Form ? Form->findChild<T*>(AName) : nullptr;
        if (!child)
            throw std::logic_error("no control " + AName.toStdString());
        return *child;
    }
    QLineEdit& Edit(const QString& AName) { return Child<QLineEdit>(AName); }
    bool Enabled(const QString& AName) { return Child<QWidget>(AName).isEnabled(); }
    bool Visible(const QString& AName) { return Child<QWidget>(AName).isVisible(); }
    void Click(const QString& AName);
    // clicks into the control, as the user does, and types the text
    void Type(const QString& AName, const QString& AText);
    void TypeInto(QWidget& AControl, const QString& AText);
    void Next() { Click(QStringLiteral("cmdNext")); }
    // the deferred deletions run, as the event loop would run them
    static void ProcessDeletes();
    // lets the event loop run until the condition holds; false if it never did within the time
    static bool WaitFor(const std::function<bool()>& ACondition, int AMilliseconds = 2000);

    void TypePatient(const QString& ASVNr = ValidSVNr);
    void TypeReferral();
    void TypeAnswers();
    // pages 0 to 2 typed by hand, and on to the letter
    void TypeCompleteFeedback();

    QStringList OutboxFiles() const;
    static QByteArray ReadFile(const QString& APath);
};

// Standard output, caught in a file while the object lives.
class StandardOutputCapture {
public:
    StandardOutputCapture();
    ~StandardOutputCapture();
    StandardOutputCapture(const StandardOutputCapture&) = delete;
    StandardOutputCapture& operator=(const StandardOutputCapture&) = delete;
    // ends the capture and gives what was written
    QByteArray Take();

private:
    QTemporaryFile FFile;
    int FSaved = -1;
};

void PrintTo(const QString& AText, std::ostream* AOut);
