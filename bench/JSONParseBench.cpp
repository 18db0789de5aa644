// Parsing a participant cache of 30,000 entries: the JSON variant against RapidJSON.
// The JSON variant reads a QString, so RapidJSON is timed on the UTF-8 bytes as a file
// delivers them and, for comparison, on the same UTF-16 text; the UTF-8 to QString
// conversion that a caller of the JSON variant pays is timed on its own.

#include "VariantJSON.h"

#include <QByteArray>
#include <QString>
#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <rapidjson/encodings.h>

namespace {

constexpr int ParticipantCount = 30000;

QByteArray participantCache() {
    static const char* const specialities[] = {"Allgemeinmedizin", "Orthopädie und Traumatologie",
                                               "Innere Medizin", "Physikalische Medizin", "Neurologie"};
    static const char* const cities[] = {"Wien",     "Graz",      "Linz",
                                         "Salzburg", "Innsbruck", "Klagenfurt am Wörthersee"};
    QByteArray json = "[";
    for (int i = 0; i < ParticipantCount; ++i) {
        if (i > 0)
            json += ",\n";
        json += "{\"name\":\"Dr. Müller-" + QByteArray::number(i) + "\",\"title\":\"Dr. med. univ.\"," +
                "\"street\":\"Hauptstraße " + QByteArray::number(i % 200 + 1) + "\",\"zip\":\"" +
                QByteArray::number(1010 + i % 8000) + "\",\"city\":\"" + cities[i % 6] + "\"," +
                "\"medNetId\":\"MN" + QByteArray::number(100000 + i) + "\",\"speciality\":\"" +
                specialities[i % 5] + "\",\"phone\":\"+43 1 " + QByteArray::number(5000000 + i) + "\"," +
                "\"email\":\"ordination" + QByteArray::number(i) + "@example.at\"," +
                "\"remark\":\"Kassen: ÖGK, BVAEB, SVS\",\"contract\":" + QByteArray::number(i % 3) + "}";
    }
    json += "]";
    return json;
}

const QByteArray& utf8Text() {
    static const QByteArray text = participantCache();
    return text;
}

const QString& utf16Text() {
    static const QString text = QString::fromUtf8(utf8Text());
    return text;
}

void setBytes(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * utf8Text().size());
    state.SetItemsProcessed(state.iterations() * ParticipantCount);
}

void BM_RapidJSON_UTF8(benchmark::State& state) {
    const QByteArray& text = utf8Text();
    for (auto _ : state) {
        rapidjson::Document document;
        document.Parse(text.constData(), size_t(text.size()));
        if (document.HasParseError() || document.Size() != ParticipantCount)
            state.SkipWithError("RapidJSON could not parse the cache");
        benchmark::DoNotOptimize(document);
    }
    setBytes(state);
}

void BM_RapidJSON_UTF16(benchmark::State& state) {
    const QString& text = utf16Text();
    using Document16 = rapidjson::GenericDocument<rapidjson::UTF16<char16_t>>;
    for (auto _ : state) {
        Document16 document;
        // the text of a QString ends with a zero, which the stream of RapidJSON needs
        document.Parse(reinterpret_cast<const char16_t*>(text.utf16()));
        if (document.HasParseError() || document.Size() != ParticipantCount)
            state.SkipWithError("RapidJSON could not parse the cache");
        benchmark::DoNotOptimize(document);
    }
    setBytes(state);
}

void BM_Utf8ToQString(benchmark::State& state) {
    const QByteArray& text = utf8Text();
    for (auto _ : state) {
        QString converted = QString::fromUtf8(text);
        benchmark::DoNotOptimize(converted);
    }
    setBytes(state);
}

void BM_JSONVariant(benchmark::State& state) {
    const QString& text = utf16Text();
    for (auto _ : state) {
        norvik::Variant document = norvik::JSONVariant(text);
        if (norvik::JSONVariantCount(document) != ParticipantCount)
            state.SkipWithError("the JSON variant could not parse the cache");
        benchmark::DoNotOptimize(document);
    }
    setBytes(state);
}

void BM_JSONVariant_FromUtf8(benchmark::State& state) {
    const QByteArray& text = utf8Text();
    for (auto _ : state) {
        norvik::Variant document = norvik::JSONVariant(QString::fromUtf8(text));
        benchmark::DoNotOptimize(document);
    }
    setBytes(state);
}

void BM_JSONVariant_Write(benchmark::State& state) {
    const norvik::Variant document = norvik::JSONVariant(utf16Text());
    for (auto _ : state) {
        QString written = document.toString();
        benchmark::DoNotOptimize(written);
    }
    setBytes(state);
}

} // namespace

BENCHMARK(BM_RapidJSON_UTF8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RapidJSON_UTF16)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Utf8ToQString)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_JSONVariant)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_JSONVariant_FromUtf8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_JSONVariant_Write)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
