#include "TWelcomeTile.h"

#include "Scaling.h"
#include "THtmlLabelText.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

using norvik::Scale;

namespace {

constexpr int PictureSize = 72;

// the picture stands centred over the whole width of the tile
QLabel* NewPicture(const QString& AName, const QString& APath, QWidget* AParent) {
    auto* picture = new QLabel(AParent);
    picture->setObjectName(AName);
    const int size = Scale(PictureSize);
    picture->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    // the same height in every tile, so that the pictures and headings of the tiles align
    picture->setContentsMargins(0, Scale(22), 0, Scale(8));
    picture->setFixedHeight(size + Scale(30));
    picture->setPixmap(QIcon(APath).pixmap(QSize(size, size), AParent->devicePixelRatioF()));
    return picture;
}

QLabel* NewText(const QString& AName, const QString& AHtml, QWidget* AParent) {
    auto* text = new QLabel(AParent);
    text->setObjectName(AName);
    text->setTextFormat(Qt::RichText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    text->setTextInteractionFlags(Qt::NoTextInteraction);
    text->setContentsMargins(Scale(16), Scale(2), Scale(16), Scale(16));
    text->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    text->setText(THtmlLabelText::ToQtRichText(AHtml, text->font()));
    return text;
}

} // namespace

TWelcomeTile::TWelcomeTile(const QString& AName, const QString& AHtml, const QString& APicture,
                           const QString& AHoverPicture, QWidget* AParent)
    : QFrame(AParent)
    , FHtml(AHtml) {
    setObjectName(AName);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    // reached with Tab, so that the choices can be made from the keyboard as well; a click
    // leaves the focus on the tile that was chosen
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    setMinimumWidth(Scale(190));
    setMaximumHeight(Scale(DesignMaximumHeight));
    QLabel* hoverPicture = NewPicture(AName + QStringLiteral("Hover"), AHoverPicture, this);
    hoverPicture->hide();
    // it is laid out while hidden, so that it appears in its place at once
    QSizePolicy policy = hoverPicture->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    hoverPicture->setSizePolicy(policy);
    // The mouse stays with the picture beneath: were the hover picture to take it, the picture
    // would lose it the moment the hover picture appears, and the two would take turns.
    hoverPicture->setAttribute(Qt::WA_TransparentForMouseEvents);
    QLabel* picture = NewPicture(AName + QStringLiteral("Picture"), APicture, this);
    FParts = {hoverPicture, NewText(AName + QStringLiteral("Text"), AHtml, this), picture};

    auto* layout = new QVBoxLayout(this);
    // the frame's border is all the margin, so that the parts fill the tile
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    auto* pictures = new QGridLayout;
    pictures->addWidget(picture, 0, 0);
    pictures->addWidget(hoverPicture, 0, 0);
    hoverPicture->raise();
    // the text takes the height that is left, down to the tile's bottom
    layout->addLayout(pictures);
    layout->addWidget(TextLabel(), 1);
}
