#include "TnvNamedValues.h"

#include <benchmark/benchmark.h>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

namespace {

// names as a database row brings them: a table prefix and a field name
QString fieldName(int index) {
    return u"PATFeld"_s + QString::number(index);
}

std::shared_ptr<TnvNamedValues> listOf(int count) {
    auto list = TnvNamedValues::Create();
    for (int i = 0; i < count; ++i)
        list->SetValueAsInteger(fieldName(i), i);
    return list;
}

// one lookup per iteration, going round the given names
void lookUp(benchmark::State& state, const QStringList& names) {
    const auto list = listOf(int(state.range(0)));
    qsizetype next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(list->FindValue(names.at(next)));
        next = (next + 1) % names.size();
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_LookupHit(benchmark::State& state) {
    QStringList names;
    for (int i = 0; i < state.range(0); ++i)
        names.append(fieldName(i));
    lookUp(state, names);
}

void BM_LookupMiss(benchmark::State& state) {
    QStringList names;
    for (int i = 0; i < state.range(0); ++i)
        names.append(u"ADRFeld"_s + QString::number(i));
    lookUp(state, names);
}

void BM_LookupOtherLetterCase(benchmark::State& state) {
    QStringList names;
    for (int i = 0; i < state.range(0); ++i)
        names.append(fieldName(i).toUpper());
    lookUp(state, names);
}

void BM_GetValueAsString(benchmark::State& state) {
    const auto list = listOf(int(state.range(0)));
    const QString name = fieldName(int(state.range(0)) / 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(list->GetValueAsString(name));
}

} // namespace

BENCHMARK(BM_LookupHit)->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(BM_LookupMiss)->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(BM_LookupOtherLetterCase)->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(BM_GetValueAsString)->Arg(10)->Arg(1000);

BENCHMARK_MAIN();
