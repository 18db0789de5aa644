// The structure check as the program runs it at start-up, each beside the same SQL sent
// straight through the SQLite C API, on files on disk:
// - the whole built-in structure created in an empty file;
// - a check of an up-to-date file that finds nothing to do (beside it: the same catalogue
//   reads, PRAGMA table_info, index_list and index_info, made directly);
// - the rebuild of tblPatienten holding 100,000 rows after its search name grew.
#include "StructureText.h"
#include "TmodData.h"
#include "TnvDBConnection.h"
#include "TnvDBUpdate.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>

using namespace norvik;

namespace {

constexpr int PatientRows = 100000;

QString BuiltInStructure() {
    static const QString text = TmodData::LoadResourceText(QStringLiteral("DBSTRUC"));
    return text;
}

struct Connection {
    TnvDBConnection conn;
    explicit Connection(const QString& AFile) {
        conn.InitDirectSQLiteDatabase(AFile);
        conn.SetConnected(true);
    }
};

// runs the check and gives the statements it ran
QStringList Check(TnvDBConnection& AConn, const QString& AStructure) {
    QStringList statements;
    TnvDBUpdate update;
    update.Connection = &AConn;
    update.Structure = StructureText::SplitLines(AStructure);
    update.OnRunSQL = [&statements](TnvDBUpdate&, const QString& statement, bool&) {
        statements.append(statement);
    };
    update.PerformCheck();
    return statements;
}

struct RawDatabase {
    sqlite3* db = nullptr;
    explicit RawDatabase(const QString& AFile) { sqlite3_open(AFile.toUtf8().constData(), &db); }
    ~RawDatabase() { sqlite3_close(db); }
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    void Exec(const QString& ASQL) {
        char* error = nullptr;
        if (sqlite3_exec(db, ASQL.toUtf8().constData(), nullptr, nullptr, &error) != SQLITE_OK) {
            const std::string message = error ? error : "sqlite3_exec failed";
            sqlite3_free(error);
            throw std::runtime_error(message);
        }
    }
    // the first column of every row
    QStringList Column(const QString& ASQL) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db, ASQL.toUtf8().constData(), -1, &statement, nullptr);
        QStringList values;
        while (sqlite3_step(statement) == SQLITE_ROW)
            values.append(
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1))));
        sqlite3_finalize(statement);
        return values;
    }
};

void BM_CreateStructure(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        Connection db(dir.filePath(QStringLiteral("q.s3db")));
        state.ResumeTiming();
        Check(db.conn, BuiltInStructure());
    }
}
BENCHMARK(BM_CreateStructure)->Unit(benchmark::kMillisecond);

void BM_CreateStructureDirect(benchmark::State& state) {
    QTemporaryDir scratch;
    const QStringList statements = [&scratch] {
        Connection db(scratch.filePath(QStringLiteral("q.s3db")));
        return Check(db.conn, BuiltInStructure());
    }();
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        RawDatabase db(dir.filePath(QStringLiteral("q.s3db")));
        state.ResumeTiming();
        for (const QString& statement : statements)
            db.Exec(statement);
    }
}
BENCHMARK(BM_CreateStructureDirect)->Unit(benchmark::kMillisecond);

void BM_CheckNothingToDo(benchmark::State& state) {
    QTemporaryDir dir;
    Connection db(dir.filePath(QStringLiteral("q.s3db")));
    Check(db.conn, BuiltInStructure());
    for (auto _ : state) {
        if (!Check(db.conn, BuiltInStructure()).isEmpty())
            state.SkipWithError("the check found something to do");
    }
}
BENCHMARK(BM_CheckNothingToDo)->Unit(benchmark::kMillisecond);

void BM_CheckNothingToDoDirect(benchmark::State& state) {
    QTemporaryDir dir;
    {
        Connection db(dir.filePath(QStringLiteral("q.s3db")));
        Check(db.conn, BuiltInStructure());
    }
    RawDatabase db(dir.filePath(QStringLiteral("q.s3db")));
    for (auto _ : state) {
        sqlite3_stmt* tables = nullptr;
        sqlite3_prepare_v2(db.db, "SELECT type, name FROM sqlite_master WHERE type = 'table'", -1, &tables,
                           nullptr);
        QStringList names;
        while (sqlite3_step(tables) == SQLITE_ROW)
            names.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(tables, 1))));
        sqlite3_finalize(tables);
        for (const QString& table : names) {
            db.Column(QStringLiteral("PRAGMA table_info(%1)").arg(table));
            for (const QString& index : db.Column(QStringLiteral("PRAGMA index_list(%1)").arg(table)))
                db.Column(QStringLiteral("PRAGMA index_info(%1)").arg(index));
        }
        benchmark::DoNotOptimize(names);
    }
}
BENCHMARK(BM_CheckNothingToDoDirect)->Unit(benchmark::kMillisecond);

// A file as the program before the last update left it: the search name 30 characters long.
const QString& OldPatientsFile() {
    static QTemporaryDir dir;
    static const QString file = [] {
        const QString path = dir.filePath(QStringLiteral("old.s3db"));
        {
            Connection db(path);
            Check(db.conn, BuiltInStructure());
        }
        RawDatabase db(path);
        db.Exec(QStringLiteral("DROP TABLE tblPatienten"));
        const QString create = QStringLiteral(
            "CREATE TABLE tblPatienten (PATID INT NOT NULL PRIMARY KEY, PATVisibleState INT DEFAULT 0, "
            "PATSuchname VARCHAR(30) COLLATE NOCASE NULL, PATVorname VARCHAR(30) COLLATE NOCASE NULL, "
            "PATNachname VARCHAR(30) COLLATE NOCASE NULL, PATSVNR VARCHAR(12) COLLATE NOCASE NULL)");
        db.Exec(create);
        db.Exec(QStringLiteral("BEGIN"));
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(db.db, "INSERT INTO tblPatienten VALUES (?, 0, ?, ?, ?, ?)", -1, &insert, nullptr);
        for (int i = 1; i <= PatientRows; ++i) {
            const QByteArray last = QStringLiteral("Muster%1").arg(i).toUtf8();
            const QByteArray first = QStringLiteral("Eva").toUtf8();
            const QByteArray search = last + ' ' + first + " (150580)";
            const QByteArray svnr = QByteArray::number(1000150580 + i);
            sqlite3_bind_int64(insert, 1, 10000000 + i);
            sqlite3_bind_text(insert, 2, search.constData(), int(search.size()), SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 3, first.constData(), int(first.size()), SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 4, last.constData(), int(last.size()), SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 5, svnr.constData(), int(svnr.size()), SQLITE_TRANSIENT);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        db.Exec(QStringLiteral("COMMIT"));
        db.Exec(QStringLiteral("CREATE INDEX iPATSuchname ON tblPatienten(PATSuchname)"));
        return path;
    }();
    return file;
}

QString FreshCopy(const QTemporaryDir& ADir) {
    const QString copy = ADir.filePath(QStringLiteral("q.s3db"));
    QFile::remove(copy);
    QFile::copy(OldPatientsFile(), copy);
    return copy;
}

void BM_RebuildPatients(benchmark::State& state) {
    QTemporaryDir dir;
    for (auto _ : state) {
        state.PauseTiming();
        auto db = std::make_unique<Connection>(FreshCopy(dir));
        state.ResumeTiming();
        const QStringList statements = Check(db->conn, BuiltInStructure());
        if (!statements.contains(QStringLiteral("ALTER TABLE tblPatienten RENAME TO tblPatienten__")))
            state.SkipWithError("no rebuild");
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_RebuildPatients)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_RebuildPatientsDirect(benchmark::State& state) {
    QTemporaryDir dir;
    const QStringList statements = [&dir] {
        Connection db(FreshCopy(dir));
        return Check(db.conn, BuiltInStructure());
    }();
    for (auto _ : state) {
        state.PauseTiming();
        auto db = std::make_unique<RawDatabase>(FreshCopy(dir));
        state.ResumeTiming();
        for (const QString& statement : statements)
            db->Exec(statement);
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_RebuildPatientsDirect)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

BENCHMARK_MAIN();
