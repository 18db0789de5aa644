#include "BuiltInResources.h"

#include <QFile>

QString BuiltInResources::questions() {
    return QString::fromUtf8(read(QStringLiteral("QUESTIONS")));
}

QString BuiltInResources::demoContent() {
    return QString::fromUtf8(read(QStringLiteral("DEMOCONTENT")));
}

QByteArray BuiltInResources::feedbackTemplate() {
    return read(QStringLiteral("FEEDBACK"));
}

QByteArray BuiltInResources::read(const QString& name) {
    QFile file(QStringLiteral(":/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}
