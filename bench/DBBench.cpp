// Writes and searches as the program does them, against SQLite files on disk.
//
// Inserts: 10,000 rows, each through its own TnvInsertUpdateHelper::Execute (one transaction
// per row with its ID from sysTableIDs), against the same rows with one prepared statement
// in one transaction. The helper is timed under the journal settings worth choosing from.
// Search: LIKE '%text%' over 100,000 patient-like names, with the registered Unicode "like"
// against SQLite's built-in LIKE.
#include "TnvDBConnection.h"
#include "TnvInsertUpdateHelper.h"

#include <QTemporaryDir>
#include <array>
#include <benchmark/benchmark.h>
#include <memory>
#include <sqlite3.h>

using namespace norvik;

namespace {

constexpr int InsertCount = 10000;
constexpr int SearchRows = 100000;

const std::array<const char*, 3> JournalSettings = {
    "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL",
    "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL",
    "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL",
};
const std::array<const char*, 3> JournalNames = {"DELETE+FULL", "WAL+FULL", "WAL+NORMAL"};

const std::array<const char16_t*, 12> Surnames = {u"Müller",  u"Gruber",  u"Huber", u"Wagner",
                                                  u"Pichler", u"Moser",   u"Mayer", u"Hofer",
                                                  u"Bauer",   u"Leitner", u"Öttl",  u"Schöberl"};
const std::array<const char16_t*, 8> FirstNames = {u"Anna",   u"Jürgen",  u"Maria",   u"Lukas",
                                                   u"Sophie", u"Günther", u"Theresa", u"Ömer"};

QString patientName(int AIndex) {
    return QString::fromUtf16(Surnames[AIndex % Surnames.size()]) + QString::number(AIndex / 96) +
           QLatin1Char(' ') + QString::fromUtf16(FirstNames[(AIndex / Surnames.size()) % FirstNames.size()]);
}

struct BenchDatabase {
    QTemporaryDir dir;
    TnvDBConnection conn;

    BenchDatabase() {
        conn.InitDirectSQLiteDatabase(dir.filePath(QStringLiteral("bench.s3db")));
        conn.SetConnected(true);
        conn.PSExecuteStatement(
            QStringLiteral("CREATE TABLE sysTableIDs(TIDTableName VARCHAR(64) COLLATE NOCASE, "
                           "TIDCount INT)"));
        conn.PSExecuteStatement(QStringLiteral(
            "CREATE TABLE tblPatienten(PATID INT PRIMARY KEY, PATAnlageAm DATETIME, PATAnlageVon INT, "
            "PATAenderungAm DATETIME, PATAenderungVon INT, PATVisibleState INT, PATName VARCHAR(80), "
            "PATGeburtsdatum DATETIME)"));
        // the table information is read at connect
        conn.SetConnected(false);
        conn.SetConnected(true);
    }

    // a second engine connection, without the registered "like"
    sqlite3* Handle() {
        if (!raw)
            sqlite3_open_v2(dir.filePath(QStringLiteral("bench.s3db")).toUtf8().constData(), &raw,
                            SQLITE_OPEN_READWRITE, nullptr);
        return raw;
    }
    ~BenchDatabase() { sqlite3_close_v2(raw); }

    sqlite3* raw = nullptr;
};

void BM_HelperInserts(benchmark::State& state) {
    const auto journal = size_t(state.range(0));
    state.SetLabel(JournalNames[journal]);
    for (auto _ : state) {
        state.PauseTiming();
        BenchDatabase db;
        db.conn.PSExecuteStatement(
            QString::fromLatin1(JournalSettings[journal]).section(QLatin1Char(';'), 0, 0));
        db.conn.PSExecuteStatement(
            QString::fromLatin1(JournalSettings[journal]).section(QLatin1Char(';'), 1, 1));
        state.ResumeTiming();
        for (int i = 0; i < InsertCount; ++i) {
            auto helper = TnvInsertUpdateHelper::CreateAndInsert(db.conn, QStringLiteral("tblPatienten"));
            helper->AddField(QStringLiteral("PATName"), Variant(patientName(i)));
            helper->AddField(QStringLiteral("PATGeburtsdatum"), Variant(QStringLiteral("03.01.1980")));
            helper->Execute();
        }
    }
    state.SetItemsProcessed(state.iterations() * InsertCount);
}
BENCHMARK(BM_HelperInserts)->Arg(0)->Arg(1)->Arg(2)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_PreparedInsertsInOneTransaction(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        BenchDatabase db;
        sqlite3* handle = db.Handle();
        state.ResumeTiming();
        sqlite3_exec(handle, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle,
                           "INSERT INTO tblPatienten (PATID, PATAnlageAm, PATAnlageVon, PATAenderungAm, "
                           "PATAenderungVon, PATVisibleState, PATName, PATGeburtsdatum) "
                           "VALUES(?, '2024-03-01 14:30:05', 0, '2024-03-01 14:30:05', 0, 0, ?, "
                           "'1980-01-03 00:00:00')",
                           -1, &statement, nullptr);
        for (int i = 0; i < InsertCount; ++i) {
            const QByteArray name = patientName(i).toUtf8();
            sqlite3_bind_int64(statement, 1, 10000001 + i);
            sqlite3_bind_text(statement, 2, name.constData(), int(name.size()), SQLITE_TRANSIENT);
            sqlite3_step(statement);
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
        sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr);
    }
    state.SetItemsProcessed(state.iterations() * InsertCount);
}
BENCHMARK(BM_PreparedInsertsInOneTransaction)->Unit(benchmark::kMillisecond);

BenchDatabase& searchDatabase() {
    static const std::unique_ptr<BenchDatabase> db = [] {
        auto result = std::make_unique<BenchDatabase>();
        sqlite3* handle = result->Handle();
        sqlite3_exec(handle, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle,
                           "INSERT INTO tblPatienten (PATID, PATVisibleState, PATName) VALUES(?, 0, ?)", -1,
                           &statement, nullptr);
        for (int i = 0; i < SearchRows; ++i) {
            const QByteArray name = patientName(i).toUtf8();
            sqlite3_bind_int64(statement, 1, 10000001 + i);
            sqlite3_bind_text(statement, 2, name.constData(), int(name.size()), SQLITE_TRANSIENT);
            sqlite3_step(statement);
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
        sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr);
        return result;
    }();
    return *db;
}

const char* const SearchStatement = "SELECT Count(*) FROM tblPatienten WHERE PATName LIKE '%ber1%'";

void BM_LikeRegistered(benchmark::State& state) {
    TnvDBConnection& conn = searchDatabase().conn;
    qint64 found = 0;
    for (auto _ : state)
        found = conn.PSQueryValue(QString::fromLatin1(SearchStatement), Variant()).toInt64();
    state.counters["rows found"] = double(found);
    state.SetItemsProcessed(state.iterations() * SearchRows);
}
BENCHMARK(BM_LikeRegistered)->Unit(benchmark::kMillisecond);

void BM_LikeBuiltIn(benchmark::State& state) {
    sqlite3* handle = searchDatabase().Handle();
    qint64 found = 0;
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle, SearchStatement, -1, &statement, nullptr);
        sqlite3_step(statement);
        found = sqlite3_column_int64(statement, 0);
        sqlite3_finalize(statement);
    }
    state.counters["rows found"] = double(found);
    state.SetItemsProcessed(state.iterations() * SearchRows);
}
BENCHMARK(BM_LikeBuiltIn)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
