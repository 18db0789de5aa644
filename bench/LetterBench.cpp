#include "TDocument.h"
#include "TFeedbackDocument.h"
#include "TFeedbackWizardState.h"
#include "TPdfExporter.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>

// The whole letter as the wizard makes it: template load, merge fields, content block, layout
// and PDF. Fonts need a GUI application; without a display it runs offscreen.
namespace {

void FillIn(TFeedbackWizardState& state) {
    state.edtPATFirstname = QStringLiteral("Josef");
    state.edtPATLastname = QStringLiteral("Gruber");
    state.edtDOCName = QStringLiteral("Dr. Martina Steiner");
    state.edtTHPTherapist = QStringLiteral("Thomas Leitner");
    state.FCatalogue.CreateQuestions(QString());
    for (TAnswerBox& box : state.FCatalogue.Boxes()) {
        box.ItemIndex = 2;
        box.Text = box.Items.value(2);
    }
    state.memContent = QStringLiteral("Bitte um Folgeverordnung.");
}

void BM_WholeLetter(benchmark::State& run) {
    TFeedbackWizardState state;
    FillIn(state);
    for (auto _ : run) {
        TFeedbackDocument letter(state);
        letter.BuildDocument(QString(), QString());
        benchmark::DoNotOptimize(engine::TPdfExporter::toPdf(letter.Document()));
    }
}
BENCHMARK(BM_WholeLetter)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
