#include "TImageCollection.h"

#include <QPixmap>

TImageCollection::TImageCollection(QSize ASize, TEntries AEntries)
    : FSize(ASize)
    , FEntries(std::move(AEntries)) {}

QStringList TImageCollection::Names() const {
    QStringList names;
    for (const auto& entry : FEntries)
        names << entry.first;
    return names;
}

QIcon TImageCollection::Icon(const QString& AName) const {
    for (const auto& entry : FEntries) {
        if (entry.first.compare(AName, Qt::CaseInsensitive) == 0)
            return QIcon(entry.second);
    }
    return {};
}

QPixmap TImageCollection::Pixmap(const QString& AName) const {
    const QIcon icon = Icon(AName);
    return icon.isNull() ? QPixmap() : icon.pixmap(FSize);
}
