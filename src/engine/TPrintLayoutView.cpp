#include "TPrintLayoutView.h"

#include "DocUnits.h"
#include "TBodyMapping.h"
#include "TDocument.h"
#include "TPageLayout.h"
#include "TPagePainter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTextDocument>
#include <cmath>

namespace engine {

namespace {

const QColor kBackground(0xc4, 0xc4, 0xc4);
const QColor kShadow(0x8c, 0x8c, 0x8c);
const QColor kSelection(0xa8, 0xce, 0xff);
constexpr double kShadowOffset = 3.0;
// pixels of one scroll step, and what the caret keeps free from the edge of the view
constexpr int kScrollStep = 20;
constexpr double kCaretMargin = 24.0;
// one notch of the mouse wheel with Ctrl zooms by this factor
constexpr double kWheelZoomStep = 1.1;
constexpr double kWheelNotch = 120.0;

} // namespace

TPrintLayoutView::TPrintLayoutView(QWidget* parent)
    : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    m_geometry.setScale(1.0, logicalDpiX(), logicalDpiY());
    connect(&m_blinkTimer, &QTimer::timeout, this, &TPrintLayoutView::blink);
}

// The document may already be gone when the view goes, so the view leaves its handler there;
// the handler holds the view only weakly.
TPrintLayoutView::~TPrintLayoutView() = default;

void TPrintLayoutView::setDocument(TDocument* document) {
    if (m_document && m_document != document)
        m_document->setChangedHandler({});
    m_document = document;
    m_mapping.reset();
    m_pagePainter.reset();
    m_layout.reset();
    m_editor.attach(nullptr);
    if (m_document) {
        m_document->setChangedHandler([view = QPointer<TPrintLayoutView>(this)] {
            if (view)
                view->documentChanged();
        });
    }
    documentChanged();
}

int TPrintLayoutView::pageCount() const {
    return m_layout ? m_layout->pageCount() : 0;
}

void TPrintLayoutView::documentChanged() {
    if (m_document && m_document->isUpdating())
        return;
    QTextDocument* body = m_document ? &m_document->body().text() : nullptr;
    m_editor.attach(body);
    if (body)
        body->clearUndoRedoStacks();
    relayout();
}

bool TPrintLayoutView::isShowing() const {
    return m_layout && m_document && !m_document->isUpdating();
}

void TPrintLayoutView::relayout() {
    m_mapping.reset();
    m_pagePainter.reset();
    m_layout.reset();
    std::vector<QSizeF> sizes;
    if (m_document) {
        m_layout = std::make_unique<TPageLayout>(*m_document);
        m_pagePainter = std::make_unique<TPagePainter>(*m_layout);
        m_mapping = std::make_unique<TBodyMapping>(*m_layout);
        for (int page = 0; page < m_layout->pageCount(); ++page)
            sizes.push_back(m_layout->page(page).pageSize);
    }
    m_geometry.setPageSizes(std::move(sizes));
    m_geometry.setScale(m_geometry.zoom(), logicalDpiX(), logicalDpiY());
    updateScrollBars();
    viewport()->update();
}

void TPrintLayoutView::updateScrollBars() {
    m_geometry.setViewportWidth(viewport()->width());
    const QSizeF content = m_geometry.contentSize();
    const QSize visible = viewport()->size();
    horizontalScrollBar()->setRange(0, qMax(0, int(std::ceil(content.width())) - visible.width()));
    horizontalScrollBar()->setPageStep(visible.width());
    horizontalScrollBar()->setSingleStep(kScrollStep);
    verticalScrollBar()->setRange(0, qMax(0, int(std::ceil(content.height())) - visible.height()));
    verticalScrollBar()->setPageStep(visible.height());
    verticalScrollBar()->setSingleStep(kScrollStep);
}

QPointF TPrintLayoutView::scrollOffset() const {
    return QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void TPrintLayoutView::setZoomFactor(double zoom) {
    zoomAround(zoom, QRectF(viewport()->rect()).center());
}

// The point of the page under the anchor stays where it is on the screen.
void TPrintLayoutView::zoomAround(double zoom, const QPointF& viewportPoint) {
    const double bounded = qBound(kMinimumZoom, zoom, kMaximumZoom);
    if (bounded == m_geometry.zoom())
        return;
    const TViewGeometry::TPagePoint anchor = m_geometry.toPage(viewportPoint + scrollOffset());
    m_geometry.setScale(bounded, logicalDpiX(), logicalDpiY());
    updateScrollBars();
    if (anchor.page >= 0) {
        const QPointF target = m_geometry.toContent(anchor.page, anchor.point) - viewportPoint;
        horizontalScrollBar()->setValue(qRound(target.x()));
        verticalScrollBar()->setValue(qRound(target.y()));
    }
    viewport()->update();
    Q_EMIT zoomFactorChanged(bounded);
}

double TPrintLayoutView::pageFitZoom(double controlPixels, double pagePixelsAt100) {
    if (pagePixelsAt100 <= 0.0)
        return 1.0;
    return (controlPixels - kFitMargin) / pagePixelsAt100;
}

QSizeF TPrintLayoutView::pageSizeAt100() const {
    const TDocSection section =
        m_document && !m_document->sections().empty() ? m_document->sections().front() : TDocSection();
    const double width = units::fromDocumentUnits(section.pageWidthInDocumentUnits());
    const double height = units::fromDocumentUnits(section.pageHeightInDocumentUnits());
    return QSizeF(width * logicalDpiX() / units::kLayoutDpi, height * logicalDpiY() / units::kLayoutDpi);
}

// What stands at the top of the view stays there.
void TPrintLayoutView::ZoomToPageWidth() {
    zoomAround(pageFitZoom(width(), pageSizeAt100().width()), QPointF(viewport()->width() / 2.0, 0.0));
}

// The page in the middle of the view is then shown whole.
void TPrintLayoutView::ZoomToPageHeight() {
    const int page = m_geometry.pageNearest(verticalScrollBar()->value() + viewport()->height() / 2.0);
    setZoomFactor(pageFitZoom(height(), pageSizeAt100().height()));
    if (page >= 0)
        verticalScrollBar()->setValue(int(m_geometry.pageRect(page).top() - TViewGeometry::kGap));
}

QPointF TPrintLayoutView::viewportPointOf(int position) const {
    if (!isShowing())
        return {};
    const TBodyMapping::TPlace place = m_mapping->caretPlace(position);
    return m_geometry.toContent(place.page, place.rect).center() - scrollOffset();
}

int TPrintLayoutView::positionAt(const QPointF& viewportPoint) const {
    const TViewGeometry::TPagePoint at = m_geometry.toPage(viewportPoint + scrollOffset());
    return m_mapping->positionAt(at.page, at.point);
}

QRectF TPrintLayoutView::caretRect() const {
    const TBodyMapping::TPlace place = m_mapping->caretPlace(m_editor.position());
    if (place.page < 0)
        return {};
    const QRectF rect = m_geometry.toContent(place.page, place.rect).translated(-scrollOffset());
    return QRectF(std::round(rect.left()), rect.top(), 1.0, rect.height());
}

void TPrintLayoutView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), kBackground);
    if (!isShowing())
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    for (int page = 0; page < m_geometry.pageCount(); ++page) {
        const QRectF rect = m_geometry.pageRect(page).translated(-scrollOffset());
        if (rect.adjusted(0, 0, kShadowOffset, kShadowOffset).intersects(event->rect()))
            paintPage(painter, page);
    }
    if (hasFocus() && m_caretShown && m_editor.isAttached() && !m_editor.hasSelection())
        painter.fillRect(caretRect(), Qt::black);
}

// The selection lies under the text, as on paper a marker would.
void TPrintLayoutView::paintPage(QPainter& painter, int page) {
    const QRectF rect = m_geometry.pageRect(page).translated(-scrollOffset());
    painter.fillRect(rect.translated(kShadowOffset, kShadowOffset), kShadow);
    painter.fillRect(rect, Qt::white);
    painter.save();
    painter.setClipRect(rect);
    painter.translate(rect.topLeft());
    painter.scale(m_geometry.pixelsPerLayoutX(), m_geometry.pixelsPerLayoutY());
    if (m_editor.hasSelection()) {
        for (const auto& place :
             m_mapping->selectionPlaces(m_editor.selectionStart(), m_editor.selectionEnd())) {
            if (place.page == page)
                painter.fillRect(place.rect, kSelection);
        }
    }
    m_pagePainter->paint(painter, page);
    painter.restore();
}

void TPrintLayoutView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void TPrintLayoutView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isShowing()) {
        QAbstractScrollArea::mousePressEvent(event);
        return;
    }
    const int position = positionAt(event->position());
    setFocus(Qt::MouseFocusReason);
    m_editor.setPosition(position, event->modifiers() & Qt::ShiftModifier);
    caretMoved();
}

void TPrintLayoutView::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton) || !isShowing())
        return;
    m_editor.setPosition(positionAt(event->position()), true);
    caretMoved();
}

// The end of a click or a drag; the caret is already where it belongs.
void TPrintLayoutView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && isShowing())
        event->accept();
    else
        QAbstractScrollArea::mouseReleaseEvent(event);
}

void TPrintLayoutView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isShowing())
        return;
    m_editor.selectWordAt(positionAt(event->position()));
    caretMoved();
}

void TPrintLayoutView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const double notches = event->angleDelta().y() / kWheelNotch;
    zoomAround(zoomFactor() * std::pow(kWheelZoomStep, notches), event->position());
    event->accept();
}

void TPrintLayoutView::keyPressEvent(QKeyEvent* event) {
    if (!isShowing()) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    if (handlePageKey(*event)) {
        caretMoved();
        return;
    }
    const TBodyEditor::TResult result = m_editor.handleKey(*event);
    if (result == TBodyEditor::TResult::Ignored) {
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    event->accept();
    if (result == TBodyEditor::TResult::Edited)
        relayout();
    caretMoved();
}

bool TPrintLayoutView::handlePageKey(const QKeyEvent& event) {
    const struct {
        QKeySequence::StandardKey key;
        int direction;
        bool extend;
    } pageKeys[] = {{QKeySequence::MoveToNextPage, 1, false},
                    {QKeySequence::MoveToPreviousPage, -1, false},
                    {QKeySequence::SelectNextPage, 1, true},
                    {QKeySequence::SelectPreviousPage, -1, true}};
    for (const auto& pageKey : pageKeys) {
        if (event.matches(pageKey.key)) {
            movePage(pageKey.direction, pageKey.extend);
            return true;
        }
    }
    return false;
}

// The caret goes a screen up or down, and the view with it.
void TPrintLayoutView::movePage(int direction, bool extend) {
    const int step = direction * viewport()->height();
    const int position = positionAt(viewportPointOf(m_editor.position()) + QPointF(0.0, step));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + step);
    m_editor.setPosition(position, extend);
}

void TPrintLayoutView::caretMoved() {
    ensureCaretVisible();
    restartBlink();
}

// The caret shows at once after each move and blinks while the view has the focus.
void TPrintLayoutView::restartBlink() {
    m_caretShown = true;
    const int interval = QApplication::cursorFlashTime() / 2;
    if (hasFocus() && interval > 0)
        m_blinkTimer.start(interval);
    else
        m_blinkTimer.stop();
    viewport()->update();
}

void TPrintLayoutView::ensureCaretVisible() {
    if (!isShowing() || !m_editor.isAttached())
        return;
    const QRectF caret = caretRect();
    if (caret.isNull())
        return;
    const QRectF visible =
        QRectF(viewport()->rect()).adjusted(kCaretMargin, kCaretMargin, -kCaretMargin, -kCaretMargin);
    const auto scrollBy = [](QScrollBar* bar, double before, double after) {
        if (before < 0)
            bar->setValue(bar->value() + int(std::floor(before)));
        else if (after > 0)
            bar->setValue(bar->value() + int(std::ceil(after)));
    };
    scrollBy(verticalScrollBar(), caret.top() - visible.top(), caret.bottom() - visible.bottom());
    scrollBy(horizontalScrollBar(), caret.left() - visible.left(), caret.right() - visible.right());
}

void TPrintLayoutView::blink() {
    m_caretShown = !m_caretShown;
    if (isShowing())
        viewport()->update(caretRect().toAlignedRect().adjusted(-1, -1, 1, 1));
}

void TPrintLayoutView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    restartBlink();
}

void TPrintLayoutView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    m_blinkTimer.stop();
    viewport()->update();
}

bool TPrintLayoutView::focusNextPrevChild(bool next) {
    return next ? false : QAbstractScrollArea::focusNextPrevChild(next);
}

} // namespace engine
