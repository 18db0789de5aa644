#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

namespace engine {

class TDocument;

// Writes a document as PDF/A-1b: fonts embedded, pictures lossless, one PDF page per page.
class TPdfExporter {
public:
    static void write(TDocument& document, QIODevice& target, const QString& title = QString());
    static QByteArray toPdf(TDocument& document, const QString& title = QString());
    // false if the file can't be written
    static bool toFile(TDocument& document, const QString& fileName, const QString& title = QString());
};

} // namespace engine
