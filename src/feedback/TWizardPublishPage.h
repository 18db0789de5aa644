#pragma once

#include <QWidget>

class QAction;
class QToolButton;

namespace engine {
class TPrintLayoutView;
}

// Page 3 of the wizard, crdPublish: the letter in its print layout, editable, and above it
// the tool strip pnlExportTools to print it, save it as a PDF, send it, and fit it to the view.
class TWizardPublishPage : public QWidget {
    Q_OBJECT

public:
    explicit TWizardPublishPage(QWidget* AParent = nullptr);

    QWidget* pnlExportTools;
    QToolButton* cmdPrint;
    QToolButton* cmdExportPDF;
    QToolButton* cmdExport;
    // its main part sends the letter like cmdExport; its arrow opens the two ways of fitting
    QToolButton* cmdZoom;
    QAction* acRTCZoomPageWidth;
    QAction* acRTCZoomWholePage;
    engine::TPrintLayoutView* RichEditControl;

private:
    void CreateTools();
    QToolButton* ToolButton(const QString& AName, const QString& AText, const QIcon& AIcon);
};
