#include "TDocument.h"

#include "TDocxImporter.h"

#include <QIODevice>

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

void prepareShapes(const TSubDocument& document) {
    for (const auto& shape : document.shapes()) {
        if (shape->hasTextBox()) {
            const QMarginsF& insets = shape->textInsets;
            shape->textBox->setWidth(qMax(1.0, shape->size.width() - insets.left() - insets.right()));
            prepareShapes(*shape->textBox);
        }
    }
}

} // namespace

void TDocument::prepareLayout() {
    const double bodyWidth = m_sections.front().bodyWidth();
    m_body->setWidth(bodyWidth);
    prepareShapes(*m_body);
    for (const TDocSection& section : m_sections) {
        for (int kind = 0; kind < TDocSection::kKindCount; ++kind) {
            for (const auto& part : {section.header(kind), section.footer(kind)}) {
                if (part) {
                    part->setWidth(section.bodyWidth());
                    prepareShapes(*part);
                }
            }
        }
    }
}

} // namespace engine
