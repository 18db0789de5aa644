#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QWidget>

class QIODevice;
class QPdfDocument;
class QPdfView;

namespace engine {

// Shows a stored letter's PDF page by page. What is stored may be a whole outbox file, the
// message text and a line break before the PDF; the viewer shows what stands from the PDF header
// on. Bytes without a PDF leave it empty, without a message.
class TPdfViewer : public QWidget {
    Q_OBJECT
public:
    explicit TPdfViewer(QWidget* parent = nullptr);
    ~TPdfViewer() override;

    // the bytes from the PDF header on; empty if there is no header
    static QByteArray pdfPart(const QByteArray& bytes);

    // false, and an empty viewer, if the bytes hold no PDF that can be read
    bool load(const QByteArray& bytes);
    bool loadFromStream(QIODevice& stream);
    void clear();

    bool isEmpty() const;
    int pageCount() const;
    QPdfView& view() const { return *m_view; }

private:
    QPdfDocument* m_document;
    QPdfView* m_view;
    // the document reads from here as long as it is shown
    QBuffer m_buffer;
};

} // namespace engine
