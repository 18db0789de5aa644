#include "ExportCommand.h"

#include "BuiltInResources.h"
#include "CliExportMessages.h"
#include "EDocumentError.h"
#include "InvDBConnection.h"
#include "TDBTherapistSource.h"
#include "TDaMeExport.h"
#include "TFeedbackDocument.h"
#include "TFeedbackFieldChecks.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"
#include "TmodData.h"
#include "TnvDBConfig.h"

#include <QBuffer>
#include <QFileInfo>

namespace {

const QString ExportFolderError = QStringLiteral(
    "Es wurde der DaMe Exportpfad nicht oder falsch definiert. Bitte konfigurieren Sie das Rückmeldesystem.");

struct CheckedField {
    QString Control;
    QString Hint;
};

// the fields the wizard checks before it lets the user go on, with the hints they show
const QList<CheckedField>& CheckedFields(int page) {
    static const QList<CheckedField> patientPage{
        {QStringLiteral("edtPATLastname"), QStringLiteral("Nachname")},
        {QStringLiteral("edtPATFirstname"), QStringLiteral("Vorname")},
        {QStringLiteral("edtPATSVNr"), QStringLiteral("SVNr (10-stellig)")},
    };
    static const QList<CheckedField> referralPage{
        {QStringLiteral("edtDOCName"), QStringLiteral("Name (Vorname + Nachname oder Institutsname)")},
        {QStringLiteral("edtDOCMailbox"), QStringLiteral("Mailboxadresse (ME123456)")},
        {QStringLiteral("edtTHPDiagnosis"), QStringLiteral("Diagnose")},
        {QStringLiteral("edtTHPStart"), QStringLiteral("Behandlung Start")},
        {QStringLiteral("edtTHPEnd"), QStringLiteral("Behandlung Ende")},
        {QStringLiteral("edtTHPTherapist"), QStringLiteral("Name Therapeut(in)")},
        {QStringLiteral("edtTHPTherapistExtension"), QStringLiteral("Berufsbezeichnung Therapeut(in)")},
        {QStringLiteral("edtTHPTherapistField"), QStringLiteral("Fachgebiet Therapeut (63)")},
        {QStringLiteral("edtTHPTherapistMailbox"), QStringLiteral("Mailboxadresse Therapeut")},
    };
    return page == 0 ? patientPage : referralPage;
}

QString PageTitle(int page) {
    return page == 0 ? QStringLiteral("Patientendaten") : QStringLiteral("Überweiser / Überweisung");
}

} // namespace

int ExportCommand::run(QStringList arguments, QTextStream& out, QTextStream& err) const {
    const Request request = TakeRequest(arguments);
    try {
        TmodData module;
        norvik::InvDBConnection* conn = module.GetConnection();
        if (!conn) {
            err << "export: the database " << TmodData::DatabasePath() << " could not be opened\n";
            return CliFailure;
        }
        return Export(*conn, request, out, err);
    } catch (const std::exception& e) {
        err << "export: " << QString::fromUtf8(e.what()) << '\n';
        return CliFailure;
    }
}

ExportCommand::Request ExportCommand::TakeRequest(QStringList& arguments) {
    Request request;
    const bool demo = takeSwitch(arguments, QStringLiteral("--demo"));
    request.Content = takeOption(arguments, QStringLiteral("--content"));
    request.Questions = QStringLiteral("questions.json");
    if (arguments.contains(QStringLiteral("--questions")))
        request.Questions = takeOption(arguments, QStringLiteral("--questions"));
    request.Template = takeOption(arguments, QStringLiteral("--template"));
    request.Memo = takeOption(arguments, QStringLiteral("--memo"));
    request.ResultCopyPath = takeOption(arguments, QStringLiteral("--rf"));
    // as the option rc: only the value "1" counts
    request.ReturnToCaller = takeOption(arguments, QStringLiteral("--rc")) == QLatin1String("1");
    if (request.Content.isEmpty() == !demo || !arguments.isEmpty())
        throw ECliUsage(QStringLiteral("expects either --content SOURCE or --demo"));
    if (demo)
        request.Content = BuiltInResources::demoContent();
    return request;
}

int ExportCommand::Export(norvik::InvDBConnection& conn, const Request& request, QTextStream& out,
                          QTextStream& err) {
    TDBTherapistSource therapists(conn);
    TFeedbackWizardState state;
    state.LoadConfig(therapists,
                     norvik::TnvDBConfig::LoadConfig(conn, QStringLiteral("DAME"), QStringLiteral("SYSTEM")));
    if (ExistingOutbox(state).isEmpty()) {
        err << ExportFolderError << '\n';
        return CliFailure;
    }
    state.FCatalogue.CreateQuestions(request.Questions);
    TFeedbackMergeValues::PrepareValues(state, request.Content, therapists);
    state.memContent = request.Memo;
    bool complete = true;
    for (int page = 0; page <= 1; ++page) {
        if (TFeedbackFieldChecks::IsPageComplete(state, page))
            continue;
        complete = false;
        err << "Die Seite \"" << PageTitle(page) << "\" ist nicht vollständig:\n";
        for (const QString& line : IncompleteFields(state, page))
            err << line << '\n';
    }
    if (!complete)
        return CliFailure;

    TFeedbackDocument letter(state);
    try {
        letter.BuildDocument(request.Template, state.FConfig->GetAsString(QStringLiteral("DOCXTemplate")));
    } catch (const engine::EDocumentError& error) {
        err << error.message() << '\n';
        return CliFailure;
    }

    TDaMeExportOptions options;
    options.ReturnToCaller = request.ReturnToCaller;
    if (!request.ResultCopyPath.isEmpty())
        options.ResultCopyPath = request.ResultCopyPath;
    // this process always has a standard output
    options.ConsoleAllocated = true;
    // the lines other than the document stay off standard output when the caller reads it
    QTextStream& results = request.ReturnToCaller ? err : out;
    CliExportMessages messages(results, err);
    QByteArray answer;
    QBuffer answerDevice(&answer);
    answerDevice.open(QIODevice::WriteOnly);
    const qint64 lastDocument = LastDocumentID(conn);
    if (!TDaMeExport::cmdExportClick(state, letter.Document(), conn, options, messages, answerDevice))
        return CliFailure;

    results << "outbox=" << state.FExport->GetAsString(QStringLiteral("ResultFileName")) << '\n';
    const qint64 document = LastDocumentID(conn);
    if (document != lastDocument)
        results << "document=" << document << '\n';
    if (!request.ResultCopyPath.isEmpty())
        results << "copy=" << request.ResultCopyPath << '\n';
    out << QString::fromLatin1(answer);
    return CliSuccess;
}

QString ExportCommand::ExistingOutbox(const TFeedbackWizardState& state) {
    const QString folder = state.FConfig->GetAsString(QStringLiteral("ExportFolder"));
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QString();
}

QStringList ExportCommand::IncompleteFields(const TFeedbackWizardState& state, int page) {
    QStringList lines;
    for (const CheckedField& field : CheckedFields(page)) {
        QString reason;
        bool failed = false;
        if (const auto validate = TFeedbackFieldChecks::ValidateEventOf(field.Control))
            validate(state.DisplayText(field.Control), reason, failed);
        if (failed)
            lines << QStringLiteral("- ") + field.Hint + QStringLiteral(": ") + reason;
    }
    return lines;
}

// IDs grow within the one system of this database, so a new document has the highest
qint64 ExportCommand::LastDocumentID(norvik::InvDBConnection& conn) {
    return conn
        .PSQueryValue(QStringLiteral("SELECT MAX(DOCID) FROM tblDokumente"), norvik::Variant(qint64(0)))
        .toInt64();
}
