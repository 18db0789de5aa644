#pragma once

#include "TParagraphProperties.h"
#include "TRunProperties.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <memory>

namespace engine {

// The styles part of a document with its theme fonts: resolves the cascade from the document
// defaults through paragraph and character styles (each with its basedOn chain) to the direct
// formatting, and turns the result into Qt's text formats.
class TDocStyleSheet {
public:
    void readStyles(const QByteArray& stylesXml);
    void readTheme(const QByteArray& themeXml);

    // the run properties of a run in a paragraph of that style, before its direct formatting
    TRunProperties runBase(const QString& paragraphStyle, const QString& characterStyle) const;
    // the paragraph properties of that style, with the defaults beneath
    TParagraphProperties paragraphBase(const QString& paragraphStyle) const;
    QString defaultParagraphStyle() const { return m_defaultParagraphStyle; }
    bool tableStyleHasBorders(const QString& tableStyle) const;

    QTextCharFormat charFormat(const TRunProperties& resolved) const;
    static QTextBlockFormat blockFormat(const TParagraphProperties& resolved);

    // the font size each character style names, in points
    std::shared_ptr<const QHash<QString, double>> characterStyleSizes() const;

private:
    struct TStyle {
        QString type;
        QString basedOn;
        TRunProperties run;
        TParagraphProperties paragraph;
        bool tableBorders = false;
    };

    void readStyle(QXmlStreamReader& xml);
    void readDefaults(QXmlStreamReader& xml);
    TRunProperties styleRun(const QString& id, int depth) const;
    TParagraphProperties styleParagraph(const QString& id, int depth) const;

    QHash<QString, TStyle> m_styles;
    TRunProperties m_defaultRun;
    TParagraphProperties m_defaultParagraph;
    QString m_defaultParagraphStyle;
    QString m_majorFont = QStringLiteral("Calibri Light");
    QString m_minorFont = QStringLiteral("Calibri");
};

} // namespace engine
