#pragma once

#include <QString>
#include <QTableView>

// A read-only list of whole rows with lines between them and no header. While its model has
// no rows, it shows a text in its middle instead.
class TEmptyTextGrid : public QTableView {
public:
    explicit TEmptyTextGrid(QWidget* AParent = nullptr);

    const QString& EmptyText() const { return FEmptyText; }
    void SetEmptyText(const QString& AText);
    // whether the empty text stands in the grid now
    bool ShowsEmptyText() const;

protected:
    void paintEvent(QPaintEvent* AEvent) override;

private:
    QString FEmptyText;
};
