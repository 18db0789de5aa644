#include "TDocument.h"

#include "DocUnits.h"
#include "TDocxImporter.h"
#include "TParagraphSpacing.h"
#include "TTabStops.h"

#include <QIODevice>
#include <QTextDocument>

namespace engine {

TDocument::TDocument()
    : m_body(std::make_unique<TSubDocument>())
    , m_sections(1) {}

TDocument::~TDocument() = default;

void TDocument::loadOpenXml(QIODevice& stream) {
    loadOpenXml(stream.readAll());
}

void TDocument::loadOpenXml(const QByteArray& docx) {
    TDocument loaded;
    TDocxImporter(loaded).import(docx);
    m_body = std::move(loaded.m_body);
    m_sections = std::move(loaded.m_sections);
    evenAndOddHeaders = loaded.evenAndOddHeaders;
    defaultTabStop = loaded.defaultTabStop;
    prepareLayout();
    if (!isUpdating() && m_changed)
        m_changed();
}

void TDocument::beginUpdate() {
    ++m_updateDepth;
}

void TDocument::endUpdate() {
    if (m_updateDepth == 0)
        return;
    if (--m_updateDepth == 0) {
        prepareLayout();
        if (m_changed)
            m_changed();
    }
}

void TDocument::setChangedHandler(std::function<void()> handler) {
    m_changed = std::move(handler);
}

namespace {

void prepareFlow(TSubDocument& flow, double width, double tabStop);

void prepareShapes(const TSubDocument& document, double tabStop) {
    for (const auto& shape : document.shapes()) {
        if (shape->hasTextBox()) {
            const QMarginsF& insets = shape->textInsets;
            prepareFlow(*shape->textBox, qMax(1.0, shape->size.width() - insets.left() - insets.right()),
                        tabStop);
        }
    }
}

void prepareFlow(TSubDocument& flow, double width, double tabStop) {
    QTextOption option = flow.text().defaultTextOption();
    if (qAbs(option.tabStopDistance() - units::toFormat(tabStop)) > 1e-6) {
        option.setTabStopDistance(units::toFormat(tabStop));
        flow.text().setDefaultTextOption(option);
    }
    flow.setWidth(width);
    TTabStops::apply(flow.text());
    TParagraphSpacing::apply(flow.text());
    prepareShapes(flow, tabStop);
}

} // namespace

void TDocument::prepareLayout() {
    prepareFlow(*m_body, m_sections.front().bodyWidth(), defaultTabStop);
    for (const TDocSection& section : m_sections) {
        for (int kind = 0; kind < TDocSection::kKindCount; ++kind) {
            for (const auto& part : {section.header(kind), section.footer(kind)}) {
                if (part)
                    prepareFlow(*part, section.bodyWidth(), defaultTabStop);
            }
        }
    }
}

} // namespace engine
