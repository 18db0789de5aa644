#pragma once

#include <QFrame>
#include <QList>
#include <QString>

class QLabel;

// A large choice of the welcome page: a picture above a text. Its parts are, in this order, a
// second picture, hidden, that stands over the first one while the mouse is on the tile, the
// text, and the picture. The parts fill the tile, so that the mouse is nearly always on one.
class TWelcomeTile : public QFrame {
    Q_OBJECT

public:
    // a tile grows with the window up to this height, at 96 pixels per inch
    static constexpr int DesignMaximumHeight = 240;

    // the text is HTML whose FONT sizes are percentages of the tile's font
    TWelcomeTile(const QString& AName, const QString& AHtml, const QString& APicture,
                 const QString& AHoverPicture, QWidget* AParent = nullptr);

    const QString& Html() const { return FHtml; }
    // the hover picture first
    const QList<QLabel*>& Parts() const { return FParts; }
    QLabel* HoverPicture() const { return FParts.at(0); }
    QLabel* TextLabel() const { return FParts.at(1); }
    QLabel* Picture() const { return FParts.at(2); }

private:
    QString FHtml;
    QList<QLabel*> FParts;
};
