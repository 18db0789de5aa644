#include "PdfProbe.h"

#include "TestEnvironment.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QUuid>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

PdfProbe::PdfProbe(const QByteArray& pdf)
    : m_file(testsupport::sandboxPath() + QStringLiteral("/probe-") +
             QUuid::createUuid().toString(QUuid::Id128) + QStringLiteral(".pdf"))
    , m_pdf(pdf) {
    QFile file(m_file);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size())
        ADD_FAILURE() << "cannot write the PDF to look at";
}

QString PdfProbe::run(const QString& program, QStringList arguments) const {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        ADD_FAILURE() << program.toStdString() << " failed: " << process.readAllStandardError().toStdString();
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString PdfProbe::text() const {
    return run(QStringLiteral("pdftotext"), {m_file, QStringLiteral("-")});
}

int PdfProbe::pageCount() const {
    const QString info = run(QStringLiteral("pdfinfo"), {m_file});
    const auto match = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(info);
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

QStringList PdfProbe::images() const {
    QStringList lines =
        run(QStringLiteral("pdfimages"), {QStringLiteral("-list"), m_file}).split(u'\n', Qt::SkipEmptyParts);
    // two lines of column titles
    return lines.mid(2);
}

QList<PdfProbe::TWord> PdfProbe::words() const {
    QXmlStreamReader xml(
        run(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), m_file, QStringLiteral("-")}));
    QList<TWord> result;
    int page = 0;
    QSizeF pageSize;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const auto number = [&](const char* name) {
            return xml.attributes().value(QLatin1String(name)).toDouble();
        };
        if (xml.name() == u"page") {
            ++page;
            pageSize = QSizeF(number("width"), number("height"));
        } else if (xml.name() == u"word") {
            TWord word;
            word.page = page;
            word.pageSize = pageSize;
            word.box =
                QRectF(QPointF(number("xMin"), number("yMin")), QPointF(number("xMax"), number("yMax")));
            word.text = xml.readElementText();
            result.append(word);
        }
    }
    return result;
}

PdfProbe::TWord PdfProbe::word(const QString& text) const {
    const auto all = words();
    for (const TWord& word : all) {
        if (word.text == text)
            return word;
    }
    return {};
}
