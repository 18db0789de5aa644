#include "AnsiCodePage.h"

#include <QTextCodec>

namespace platform {

namespace {

QTextCodec* codec() {
    static QTextCodec* const windows1252 = QTextCodec::codecForName("Windows-1252");
    return windows1252;
}

} // namespace

QByteArray AnsiCodePage::encode(const QString& text) {
    return codec()->fromUnicode(text);
}

QString AnsiCodePage::decode(const QByteArray& bytes) {
    return codec()->toUnicode(bytes);
}

bool AnsiCodePage::canEncode(const QString& text) {
    return codec()->canEncode(text);
}

} // namespace platform
