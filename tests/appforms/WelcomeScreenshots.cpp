// Takes pictures of the main window with its welcome page, empty and with a few feedbacks, and
// a sheet of the program icon and the small pictures, for a look at them without a display:
//     welcome_screenshots [FOLDER]        (default /tmp/shots)
// The database lies in a sandbox that goes with the run.
#include "AppUtils.h"
#include "FeedbackRows.h"
#include "InvDBConnection.h"
#include "NamedMessages.h"
#include "SystemUtils.h"
#include "TImageCollection.h"
#include "TMainForm.h"
#include "TWelcomeForm.h"
#include "TWelcomeTile.h"
#include "TestEnvironment.h"
#include "TmodData.h"
#include "TnvDBConfig.h"

#include <QApplication>
#include <QDir>
#include <QEnterEvent>
#include <QLabel>
#include <QPainter>
#include <QTest>
#include <cstdio>

namespace {

void SetExportFolder(norvik::InvDBConnection& AConnection, const QString& AFolder) {
    auto values = norvik::TnvNamedValues::Create();
    values->SetValueAsString(QStringLiteral("ExportFolder"), AFolder);
    norvik::TnvDBConfig::SaveConfig(AConnection, QStringLiteral("DAME"), QStringLiteral("SYSTEM"), *values);
}

void AddFeedbacks(norvik::InvDBConnection& AConnection) {
    struct Row {
        const char* First;
        const char* Last;
        const char* Date;
        const char* Therapist;
    };
    const Row rows[] = {{"Anna", "Huber", "2026-03-12 14:30:00", "Maria Steiner"},
                        {"", "Öztürk", "2026-03-12 09:05:00", "Paul Wagner"},
                        {"Johann", "Gruber-Leitner", "2026-03-10 16:45:00", "Maria Steiner"},
                        {"Eva", "Bauer", "2026-02-27 11:00:00", "Dr. Theresia Wimmer-Hochreiter"}};
    qint64 id = 1;
    for (const Row& row : rows) {
        feedbackrows::AddPatient(AConnection, id, QString::fromUtf8(row.First), QString::fromUtf8(row.Last));
        feedbackrows::AddDocument(AConnection, id, id, QString::fromUtf8(row.Date),
                                  QString::fromUtf8(row.Therapist));
        ++id;
    }
}

// the window at the given size, as it stands after its first pages came up
bool Shoot(TmodData& AData, QSize ASize, const QString& AFile, bool AHover) {
    auto* form = new TMainForm(AData);
    form->resize(ASize);
    form->show();
    QTest::qWait(200);
    if (AHover) {
        auto* welcome = qobject_cast<TWelcomeForm*>(form->BaseForm());
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QApplication::sendEvent(welcome->Tile(0)->TextLabel(), &enter);
        QTest::qWait(50);
    }
    const bool saved = form->grab().save(AFile);
    std::printf("%s %s\n", saved ? "wrote" : "could not write", qPrintable(AFile));
    delete form;
    return saved;
}

// the program icon and the small pictures of the main window, four times enlarged, on the
// page's colour
bool ShootPictures(const QString& AFile) {
    const int scale = 4;
    const TImageCollection& images = TMainForm::Images();
    QImage sheet(
        QSize(128 + (images.Size().width() * scale + 16) * int(images.Names().size()) + 16, 128 + 16),
        QImage::Format_ARGB32);
    sheet.fill(QColor(0xF4, 0xF1, 0xEC));
    QPainter painter(&sheet);
    painter.drawPixmap(8, 8, TMainForm::ProgramIcon().pixmap(128, 128));
    int x = 152;
    for (const QString& name : images.Names()) {
        painter.drawPixmap(x, 40, images.Icon(name).pixmap(images.Size() * scale));
        x += images.Size().width() * scale + 16;
    }
    painter.end();
    const bool saved = sheet.save(AFile);
    std::printf("%s %s\n", saved ? "wrote" : "could not write", qPrintable(AFile));
    return saved;
}

} // namespace

int main(int argc, char** argv) {
    testsupport::redirectProgramFolders();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    norvik::SetApplicationTitle(QStringLiteral("Orvenna Rückmeldesystem"));
    norvik::RegisterNamedMessages();
    norvik::FillCmdParams({QStringLiteral("orvenna")});
    norvik::FillAppParams({QStringLiteral("orvenna")});
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("/tmp/shots"));
    folder.mkpath(QStringLiteral("."));

    TmodData data;
    norvik::InvDBConnection* connection = data.GetConnection();
    if (!connection) {
        std::fprintf(stderr, "the sandbox database could not be opened\n");
        return 1;
    }
    SetExportFolder(*connection, testsupport::sandboxPath());
    feedbackrows::Clear(*connection);
    bool ok = Shoot(data, QSize(1000, 700), folder.filePath(QStringLiteral("welcome-empty.png")), false);
    AddFeedbacks(*connection);
    ok = Shoot(data, QSize(1000, 700), folder.filePath(QStringLiteral("welcome-filled.png")), false) && ok;
    ok = Shoot(data, QSize(1000, 700), folder.filePath(QStringLiteral("welcome-hover.png")), true) && ok;
    ok = Shoot(data, QSize(TMainForm::MinimumWidth, TMainForm::MinimumHeight),
               folder.filePath(QStringLiteral("welcome-minimum.png")), false) &&
         ok;
    ok = ShootPictures(folder.filePath(QStringLiteral("pictures.png"))) && ok;
    return ok ? 0 : 1;
}
