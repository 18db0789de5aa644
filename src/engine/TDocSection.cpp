#include "TDocSection.h"

#include "DocUnits.h"

namespace engine {

namespace {

bool validKind(int kind) {
    return kind >= 0 && kind < TDocSection::kKindCount;
}

} // namespace

// A4 portrait with Word's usual margins until a section property says otherwise.
TDocSection::TDocSection()
    : pageSize(units::fromTwips(11906), units::fromTwips(16838))
    , margins(units::fromTwips(1417), units::fromTwips(1417), units::fromTwips(1417), units::fromTwips(1134))
    , headerDistance(units::fromTwips(708))
    , footerDistance(units::fromTwips(708)) {}

bool TDocSection::hasHeader(int kind) const {
    return header(kind) != nullptr;
}

bool TDocSection::hasFooter(int kind) const {
    return footer(kind) != nullptr;
}

std::shared_ptr<TSubDocument> TDocSection::header(int kind) const {
    return validKind(kind) ? m_headers[kind] : nullptr;
}

std::shared_ptr<TSubDocument> TDocSection::footer(int kind) const {
    return validKind(kind) ? m_footers[kind] : nullptr;
}

void TDocSection::setHeader(int kind, std::shared_ptr<TSubDocument> document) {
    if (validKind(kind))
        m_headers[kind] = std::move(document);
}

void TDocSection::setFooter(int kind, std::shared_ptr<TSubDocument> document) {
    if (validKind(kind))
        m_footers[kind] = std::move(document);
}

double TDocSection::pageWidthInDocumentUnits() const {
    return units::toDocumentUnits(pageSize.width());
}

double TDocSection::pageHeightInDocumentUnits() const {
    return units::toDocumentUnits(pageSize.height());
}

double TDocSection::bodyWidth() const {
    return pageSize.width() - margins.left() - margins.right();
}

} // namespace engine
