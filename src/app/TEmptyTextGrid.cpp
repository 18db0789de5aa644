#include "TEmptyTextGrid.h"

#include "Scaling.h"

#include <QHeaderView>
#include <QPainter>

TEmptyTextGrid::TEmptyTextGrid(QWidget* AParent)
    : QTableView(AParent) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    // the lines between the rows come from the item style; columns get none
    setShowGrid(false);
    setWordWrap(false);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void TEmptyTextGrid::SetEmptyText(const QString& AText) {
    FEmptyText = AText;
    viewport()->update();
}

bool TEmptyTextGrid::ShowsEmptyText() const {
    return !FEmptyText.isEmpty() && (!model() || model()->rowCount(rootIndex()) == 0);
}

void TEmptyTextGrid::paintEvent(QPaintEvent* AEvent) {
    QTableView::paintEvent(AEvent);
    if (!ShowsEmptyText())
        return;
    const int gap = norvik::Scale(8);
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(gap, gap, -gap, -gap), Qt::AlignCenter | Qt::TextWordWrap,
                     FEmptyText);
}
