// Feeds arbitrary bytes, read as UTF-8, to the wizard as the content a calling program hands
// over, then builds the merge fields, the export values and the MEDRPT message with the same
// text as the report's free text. Nothing of it may fail, and the message must keep its frame.

#include "ITherapistSource.h"
#include "TFeedbackExport.h"
#include "TFeedbackMergeValues.h"
#include "TFeedbackWizardState.h"
#include "TnvDiagnosticReport.h"
#include "TnvNamedValues.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

// one therapist, found by its name
class OneTherapist : public ITherapistSource {
public:
    OneTherapist() {
        FRow->SetValueAsString(QStringLiteral("TPTZusatzText1"), QStringLiteral("Anna Berger"));
        FRow->SetValueAsString(QStringLiteral("TPTDaMeCode"), QStringLiteral("ME111"));
        FRow->SetValueAsString(QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("PHY"));
    }
    QList<norvik::InvNamedValuesPtr> AllTherapists() override { return {FRow}; }
    norvik::InvNamedValuesPtr TherapistByName(const QString& AName) override {
        return AName == FRow->GetAsString(QStringLiteral("TPTZusatzText1"))
                   ? FRow
                   : norvik::TnvNamedValues::Create();
    }

private:
    std::shared_ptr<norvik::TnvNamedValues> FRow = norvik::TnvNamedValues::Create();
};

void fail(const char* what, const QString& text) {
    std::fprintf(stderr, "%s: %s\n", what, text.toUtf8().constData());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    OneTherapist source;
    TFeedbackWizardState state;
    state.LoadConfig(source, nullptr);
    state.FCatalogue.CreateQuestions(QString());
    TFeedbackMergeValues::PrepareValues(state, text, source);
    TFeedbackMergeValues::BuildMergeFields(state);
    TFeedbackExport::FillExport(state);

    norvik::TnvDiagnosticTextEntry entry;
    entry.APATID = 1;
    entry.AText = text;
    entry.AReason = text;
    const QString message = norvik::TnvDiagnosticReport::BuildDiagnosticMessage(*state.FExport, {entry});
    if (!message.startsWith(QStringLiteral("UNA:+.? 'UNB+ANSI:1+")) ||
        !message.endsWith(QStringLiteral("'UNZ+1+1'")))
        fail("message frame", message);
    if (!norvik::TnvDiagnosticReport::MessageLine(message).endsWith("\r\n"))
        fail("line end", message);
    return 0;
}
