#pragma once

#include "DocUnits.h"
#include "TDocSection.h"
#include "TSubDocument.h"

#include <QByteArray>
#include <functional>
#include <memory>
#include <vector>

class QIODevice;

namespace engine {

// A word-processor document: the body, its sections with their headers and footers, and the
// shapes anchored in them.
class TDocument {
public:
    TDocument();
    ~TDocument();

    // Replaces the whole document by a template in OpenXML (DOCX) form; raises EDocumentError
    // for something that is no such document.
    void loadOpenXml(QIODevice& stream);
    void loadOpenXml(const QByteArray& docx);

    TSubDocument& body() { return *m_body; }
    const TSubDocument& body() const { return *m_body; }
    std::vector<TDocSection>& sections() { return m_sections; }
    const std::vector<TDocSection>& sections() const { return m_sections; }

    // whether even pages use the even header and footer
    bool evenAndOddHeaders = false;
    // the distance of the tab stops that no paragraph sets, in layout units
    double defaultTabStop = units::fromTwips(720);

    // A rebuild stands between these; whoever shows the document hears once at the end.
    void beginUpdate();
    void endUpdate();
    bool isUpdating() const { return m_updateDepth > 0; }
    void setChangedHandler(std::function<void()> handler);

    // gives every flow of text the width it is laid out at
    void prepareLayout();

private:
    friend class TDocxImporter;

    std::unique_ptr<TSubDocument> m_body;
    std::vector<TDocSection> m_sections;
    int m_updateDepth = 0;
    std::function<void()> m_changed;
};

} // namespace engine
