#pragma once

#include "TBodyEditor.h"
#include "TViewGeometry.h"

#include <QAbstractScrollArea>
#include <QTimer>
#include <memory>

namespace engine {

class TBodyMapping;
class TDocument;
class TPageLayout;
class TPagePainter;

// The print-layout view of a document: its pages one below the other on a grey background,
// drawn as they are printed, at a zoom factor. The body can be edited in place; headers,
// footers and text boxes can't. The view doesn't own the document; it hears of rebuilds
// through the document's changed handler and shows each one once, when it is complete.
class TPrintLayoutView : public QAbstractScrollArea {
    Q_OBJECT
public:
    static constexpr double kMinimumZoom = 0.1;
    static constexpr double kMaximumZoom = 5.0;
    // what fitting a page to the control leaves free of its width or height, in pixels
    static constexpr double kFitMargin = 100.0;

    explicit TPrintLayoutView(QWidget* parent = nullptr);
    ~TPrintLayoutView() override;

    // nullptr shows nothing
    void setDocument(TDocument* document);
    TDocument* document() const { return m_document; }
    int pageCount() const;

    // 1.0 shows a page at its physical size at the control's resolution
    double zoomFactor() const { return m_geometry.zoom(); }
    void setZoomFactor(double zoom);
    void ZoomToPageWidth();
    void ZoomToPageHeight();
    // the zoom at which a page of this many pixels at 100 percent fills the control less the margin
    static double pageFitZoom(double controlPixels, double pagePixelsAt100);
    // the first section's page at 100 percent, in pixels of this control
    QSizeF pageSizeAt100() const;

    const TBodyEditor& editor() const { return m_editor; }
    const TViewGeometry& geometry() const { return m_geometry; }
    // the middle of the caret's line at a position of the body, in pixels of the viewport
    QPointF viewportPointOf(int position) const;

public Q_SLOTS:
    // the document was rebuilt or replaced: lay it out anew, caret at the start, undo cleared
    void documentChanged();

Q_SIGNALS:
    void zoomFactorChanged(double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    // the tab key types a tab into the letter
    bool focusNextPrevChild(bool next) override;

private:
    bool isShowing() const;
    void relayout();
    void updateScrollBars();
    void zoomAround(double zoom, const QPointF& viewportPoint);
    QPointF scrollOffset() const;
    int positionAt(const QPointF& viewportPoint) const;
    bool handlePageKey(const QKeyEvent& event);
    void movePage(int direction, bool extend);
    void caretMoved();
    void restartBlink();
    void ensureCaretVisible();
    QRectF caretRect() const;
    void blink();
    void paintPage(QPainter& painter, int page);

    TDocument* m_document = nullptr;
    std::unique_ptr<TPageLayout> m_layout;
    std::unique_ptr<TPagePainter> m_pagePainter;
    std::unique_ptr<TBodyMapping> m_mapping;
    TViewGeometry m_geometry;
    TBodyEditor m_editor;
    QTimer m_blinkTimer;
    bool m_caretShown = true;
};

} // namespace engine
