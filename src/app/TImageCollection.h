#pragma once

#include <QIcon>
#include <QList>
#include <QPair>
#include <QSize>
#include <QString>
#include <QStringList>

// Pictures of one size, each found by its name, drawn from the program's resources.
class TImageCollection {
public:
    // name and resource path of each picture
    using TEntries = QList<QPair<QString, QString>>;

    TImageCollection(QSize ASize, TEntries AEntries);

    QSize Size() const { return FSize; }
    QStringList Names() const;
    // the picture of that name, with letter case ignored; a null icon for an unknown name
    QIcon Icon(const QString& AName) const;
    // the picture at the collection's size; a null pixmap for an unknown name
    QPixmap Pixmap(const QString& AName) const;

private:
    QSize FSize;
    TEntries FEntries;
};
