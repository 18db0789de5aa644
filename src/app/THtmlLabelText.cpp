#include "THtmlLabelText.h"

#include <QList>
#include <QRegularExpression>

QString THtmlLabelText::FontSize(int APercent, const QFont& ABase) {
    if (ABase.pointSizeF() > 0)
        return QString::number(ABase.pointSizeF() * APercent / 100.0, 'f', 1) + QStringLiteral("pt");
    return QString::number(qRound(ABase.pixelSize() * APercent / 100.0)) + QStringLiteral("px");
}

QString THtmlLabelText::ToQtRichText(const QString& AHtml, const QFont& ABase) {
    static const QRegularExpression fontTag(QStringLiteral("<(/?)FONT\\b([^>]*)>"),
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression percentSize(QStringLiteral("\\bsize\\s*=\\s*\"(\\d+)%\""),
                                                QRegularExpression::CaseInsensitiveOption);
    QString result;
    // for each open FONT tag, whether it became a span; its closing tag must follow suit
    QList<bool> open;
    qsizetype done = 0;
    for (const QRegularExpressionMatch& tag : fontTag.globalMatch(AHtml)) {
        result += QStringView(AHtml).mid(done, tag.capturedStart() - done);
        done = tag.capturedEnd();
        if (tag.capturedView(1).isEmpty()) {
            const QRegularExpressionMatch size = percentSize.match(tag.capturedView(2));
            open.append(size.hasMatch());
            result += size.hasMatch() ? QStringLiteral("<span style=\"font-size:%1\">")
                                            .arg(FontSize(size.captured(1).toInt(), ABase))
                                      : tag.captured(0);
        } else {
            result += !open.isEmpty() && open.takeLast() ? QStringLiteral("</span>") : tag.captured(0);
        }
    }
    result += QStringView(AHtml).mid(done);
    return result;
}
