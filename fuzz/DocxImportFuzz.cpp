#include "EDocumentError.h"
#include "TDocument.h"
#include "TPdfExporter.h"

#include <QBuffer>
#include <QGuiApplication>
#include <cstddef>
#include <cstdint>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

// A template from a practice is outside input: whatever it holds, loading, laying out and
// writing the PDF must end in a document or in EDocumentError. The first byte chooses whether
// the rest is the whole package or the text of its main part.
namespace {

QByteArray packageAround(const QByteArray& documentXml) {
    QByteArray zip;
    QBuffer buffer(&zip);
    QuaZip archive(&buffer);
    archive.open(QuaZip::mdCreate);
    QuaZipFile file(&archive);
    file.open(QIODevice::WriteOnly, QuaZipNewInfo(QStringLiteral("word/document.xml")));
    file.write(documentXml);
    file.close();
    archive.close();
    return zip;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray rest(reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));
    engine::TDocument document;
    try {
        document.loadOpenXml((data[0] & 1) ? rest : packageAround(rest));
        engine::TPdfExporter::toPdf(document);
    } catch (const engine::EDocumentError&) {
    }
    return 0;
}
