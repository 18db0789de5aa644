#pragma once

#include "TSubDocument.h"

#include <QMarginsF>
#include <QSizeF>
#include <QTextCursor>
#include <array>
#include <memory>

namespace engine {

// One section of a document: its page geometry and its headers and footers. Lengths in layout
// units; the page size also in the engine's document units for callers.
class TDocSection {
public:
    // the three kinds of header and footer, numbered as the letter code expects them
    enum THeaderFooterKind { First = 0, Primary = 1, Even = 2 };
    static constexpr int kKindCount = 3;

    TDocSection();

    QSizeF pageSize;
    QMarginsF margins;
    double headerDistance = 0.0;
    double footerDistance = 0.0;
    bool differentFirstPage = false;
    // the last paragraph of the body that belongs to this section
    QTextCursor lastParagraph;
    // a new section that doesn't start a page continues on the page of the one before
    bool startsNewPage = true;

    bool hasHeader(int kind) const;
    bool hasFooter(int kind) const;
    std::shared_ptr<TSubDocument> header(int kind) const;
    std::shared_ptr<TSubDocument> footer(int kind) const;
    void setHeader(int kind, std::shared_ptr<TSubDocument> document);
    void setFooter(int kind, std::shared_ptr<TSubDocument> document);

    double pageWidthInDocumentUnits() const;
    double pageHeightInDocumentUnits() const;
    double bodyWidth() const;

private:
    std::array<std::shared_ptr<TSubDocument>, kKindCount> m_headers;
    std::array<std::shared_ptr<TSubDocument>, kKindCount> m_footers;
};

} // namespace engine
