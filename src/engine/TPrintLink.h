#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <memory>

class QPrintPreviewDialog;
class QPrinter;
class QWidget;

namespace engine {

class TDocument;

// The printer link of a document: printing, the print preview and the PDF export all draw the
// same pages, so that what the preview shows is what the printer and the PDF get.
class TPrintLink : public QObject {
    Q_OBJECT
public:
    explicit TPrintLink(TDocument& document, QObject* parent = nullptr);

    // the title the PDF carries in its properties
    void setTitle(const QString& title) { m_title = title; }

    // A preview on the system's printers, from which the user prints. The caller runs it
    // modally.
    std::unique_ptr<QPrintPreviewDialog> createPreviewDialog(QWidget* parent);
    // false if the printer can't be painted on, e.g. a file that can't be written
    bool print(QPrinter& printer) const;

    bool exportToPdfFile(const QString& fileName) const;
    QByteArray exportToPdf() const;

private:
    TDocument& m_document;
    QString m_title;
};

} // namespace engine
