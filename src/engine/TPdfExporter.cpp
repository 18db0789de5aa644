#include "TPdfExporter.h"

#include "DocUnits.h"
#include "TPageLayout.h"
#include "TPagePainter.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace engine {

namespace {

QPageLayout pageLayoutOf(const QSizeF& size) {
    const QSizeF points(units::toPoints(size.width()), units::toPoints(size.height()));
    return QPageLayout(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch),
                       QPageLayout::Portrait, QMarginsF(0, 0, 0, 0));
}

void blank(QByteArray& pdf, const QByteArray& prefix, int length) {
    for (qsizetype at = pdf.indexOf(prefix); at >= 0; at = pdf.indexOf(prefix, at + 1))
        pdf.replace(at + prefix.size(), length, QByteArray(length, '0'));
}

// Qt gives every PDF a random file identifier. The letter's identifier is derived from its
// content instead, so that the same letter gives the same bytes apart from its dates; the new
// identifier has the old one's length, so no offset in the file changes.
QByteArray withContentIdentifier(QByteArray pdf) {
    const QByteArray marker = "/ID [ <";
    const qsizetype at = pdf.lastIndexOf(marker);
    if (at < 0)
        return pdf;
    const QByteArray random = pdf.mid(at + marker.size(), 32);
    if (random.size() != 32)
        return pdf;
    QByteArray neutral = pdf;
    neutral.replace(random, QByteArray(random.size(), '0'));
    blank(neutral, "/CreationDate (D:", 14);
    blank(neutral, "xmp:CreateDate=\"", 20);
    blank(neutral, "xmp:ModifyDate=\"", 20);
    const QByteArray stable =
        QCryptographicHash::hash(neutral, QCryptographicHash::Md5).toHex().left(random.size());
    return pdf.replace(random, stable);
}

void render(TDocument& document, QIODevice& target, const QString& title) {
    const TPageLayout layout(document);
    const TPagePainter pagePainter(layout);
    QPdfWriter writer(&target);
    writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
    writer.setResolution(int(units::kLayoutDpi));
    writer.setCreator(QStringLiteral("Orvenna Rückmeldesystem"));
    writer.setTitle(title);
    writer.setPageLayout(pageLayoutOf(layout.page(0).pageSize));
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    for (int index = 0; index < layout.pageCount(); ++index) {
        if (index > 0) {
            writer.setPageLayout(pageLayoutOf(layout.page(index).pageSize));
            writer.newPage();
        }
        pagePainter.paint(painter, index);
    }
    painter.end();
}

} // namespace

void TPdfExporter::write(TDocument& document, QIODevice& target, const QString& title) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    render(document, buffer, title);
    target.write(withContentIdentifier(pdf));
}

QByteArray TPdfExporter::toPdf(TDocument& document, const QString& title) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    write(document, buffer, title);
    return bytes;
}

bool TPdfExporter::toFile(TDocument& document, const QString& fileName, const QString& title) {
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    write(document, file, title);
    return file.error() == QFileDevice::NoError;
}

} // namespace engine
