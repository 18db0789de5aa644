#include "TPrintLink.h"

#include "DocUnits.h"
#include "TPageLayout.h"
#include "TPagePainter.h"
#include "TPdfExporter.h"

#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace engine {

namespace {

// A page of A4 size goes to the printer as A4, so that the printer takes its A4 paper; other
// sizes go as they are. Printing fills the whole sheet, as the PDF does.
void setPage(QPrinter& printer, const QSizeF& layoutSize) {
    const bool landscape = layoutSize.width() > layoutSize.height();
    const QSizeF portrait = landscape ? layoutSize.transposed() : layoutSize;
    const QSizeF points(units::toPoints(portrait.width()), units::toPoints(portrait.height()));
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::FuzzyMatch));
    printer.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

} // namespace

TPrintLink::TPrintLink(TDocument& document, QObject* parent)
    : QObject(parent)
    , m_document(document) {}

std::unique_ptr<QPrintPreviewDialog> TPrintLink::createPreviewDialog(QWidget* parent) {
    auto dialog = std::make_unique<QPrintPreviewDialog>(parent);
    setPage(*dialog->printer(), TPageLayout(m_document).page(0).pageSize);
    connect(dialog.get(), &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* printer) { print(*printer); });
    return dialog;
}

bool TPrintLink::print(QPrinter& printer) const {
    const TPageLayout layout(m_document);
    const TPagePainter pagePainter(layout);
    printer.setDocName(m_title);
    setPage(printer, layout.page(0).pageSize);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.setRenderHint(QPainter::LosslessImageRendering);
    for (int index = 0; index < layout.pageCount(); ++index) {
        if (index > 0) {
            // a printer takes a new sheet size only where the sections change it
            if (layout.page(index).pageSize != layout.page(index - 1).pageSize)
                setPage(printer, layout.page(index).pageSize);
            printer.newPage();
        }
        painter.save();
        painter.scale(printer.logicalDpiX() / units::kLayoutDpi, printer.logicalDpiY() / units::kLayoutDpi);
        pagePainter.paint(painter, index);
        painter.restore();
    }
    return painter.end();
}

bool TPrintLink::exportToPdfFile(const QString& fileName) const {
    return TPdfExporter::toFile(m_document, fileName, m_title);
}

QByteArray TPrintLink::exportToPdf() const {
    return TPdfExporter::toPdf(m_document, m_title);
}

} // namespace engine
