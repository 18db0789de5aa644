#pragma once

#include "CliCommand.h"

class TFeedbackWizardState;

namespace norvik {
class InvDBConnection;
}

// The end of a feedback without a window, against the machine-wide database and the
// configured outbox: the wizard's start with the content given (or the built-in demo
// content), its checks of the outbox and of the first two pages, the letter, and the export
// with everything it stores. Prints outbox=<file> and document=<row id of tblDokumente>;
// with --rf also copy=<path>. With --rc 1 standard output holds only the line
// {"document":"<base64>"} and the other lines go to standard error.
class ExportCommand : public CliCommand {
public:
    QString name() const override { return QStringLiteral("export"); }
    QString synopsis() const override {
        return QStringLiteral("--content SOURCE|--demo [--questions SOURCE] [--template FILE] [--memo TEXT] "
                              "[--rf PATH] [--rc 1]");
    }
    int run(QStringList arguments, QTextStream& out, QTextStream& err) const override;

private:
    struct Request {
        QString Content;
        QString Questions;
        QString Template;
        QString Memo;
        QString ResultCopyPath;
        bool ReturnToCaller = false;
    };

    static Request TakeRequest(QStringList& arguments);
    static int Export(norvik::InvDBConnection& conn, const Request& request, QTextStream& out,
                      QTextStream& err);
    // the outbox folder of the settings, or empty when it is no existing folder
    static QString ExistingOutbox(const TFeedbackWizardState& state);
    // the failed fields of the page, one line "- <field>: <reason>" each; empty for a complete page
    static QStringList IncompleteFields(const TFeedbackWizardState& state, int page);
    static qint64 LastDocumentID(norvik::InvDBConnection& conn);
};
