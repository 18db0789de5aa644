#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>

// Reads a PDF back with poppler's command-line tools, as a person would look at it.
class PdfProbe {
public:
    struct TWord {
        QString text;
        int page = 0;
        // in points, from the page's top left corner
        QRectF box;
        QSizeF pageSize;
    };

    explicit PdfProbe(const QByteArray& pdf);

    // the text of all pages, in reading order; pages separated by form feeds
    QString text() const;
    int pageCount() const;
    // one line per embedded picture: page, width, height, encoding
    QStringList images() const;
    QList<TWord> words() const;
    // the first word that is exactly this, or one with an empty text
    TWord word(const QString& text) const;

private:
    QString run(const QString& program, QStringList arguments) const;

    QString m_file;
    QByteArray m_pdf;
};
