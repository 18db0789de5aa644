#include "FileUtils.h"

#include <QFile>
#include <QStringDecoder>

namespace norvik {

bool TryReadUtf8File(const QString& path, QString& text) {
    text.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    text = decoder(file.readAll());
    return file.error() == QFileDevice::NoError;
}

} // namespace norvik
