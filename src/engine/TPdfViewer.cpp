#include "TPdfViewer.h"

#include <QPdfDocument>
#include <QPdfView>
#include <QVBoxLayout>

namespace engine {

TPdfViewer::TPdfViewer(QWidget* parent)
    : QWidget(parent)
    , m_document(new QPdfDocument(this))
    , m_view(new QPdfView(this)) {
    m_view->setPageMode(QPdfView::PageMode::MultiPage);
    m_view->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
}

TPdfViewer::~TPdfViewer() {
    // the document lets go of the buffer before the buffer goes
    m_view->setDocument(nullptr);
    m_document->close();
}

QByteArray TPdfViewer::pdfPart(const QByteArray& bytes) {
    const qsizetype start = bytes.indexOf("%PDF");
    return start < 0 ? QByteArray() : bytes.mid(start);
}

bool TPdfViewer::load(const QByteArray& bytes) {
    clear();
    const QByteArray pdf = pdfPart(bytes);
    if (pdf.isEmpty())
        return false;
    m_buffer.setData(pdf);
    m_buffer.open(QIODevice::ReadOnly);
    m_document->load(&m_buffer);
    if (m_document->status() != QPdfDocument::Status::Ready || m_document->pageCount() == 0) {
        clear();
        return false;
    }
    m_view->setDocument(m_document);
    return true;
}

bool TPdfViewer::loadFromStream(QIODevice& stream) {
    return load(stream.readAll());
}

void TPdfViewer::clear() {
    m_view->setDocument(nullptr);
    m_document->close();
    m_buffer.close();
    m_buffer.setData(QByteArray());
}

bool TPdfViewer::isEmpty() const {
    return m_view->document() == nullptr;
}

int TPdfViewer::pageCount() const {
    return isEmpty() ? 0 : m_document->pageCount();
}

} // namespace engine
