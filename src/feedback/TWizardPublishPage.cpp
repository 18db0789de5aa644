#include "TWizardPublishPage.h"

#include "Scaling.h"
#include "TPrintLayoutView.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

using norvik::Scale;

TWizardPublishPage::TWizardPublishPage(QWidget* AParent)
    : QWidget(AParent)
    , pnlExportTools(new QWidget(this))
    , RichEditControl(new engine::TPrintLayoutView(this)) {
    setObjectName(QStringLiteral("crdPublish"));
    pnlExportTools->setObjectName(QStringLiteral("pnlExportTools"));
    RichEditControl->setObjectName(QStringLiteral("RichEditControl"));
    CreateTools();
    auto* layout = new QVBoxLayout(this);
    // the wizard has its own margin at the sides; the tool strip needs the whole width
    layout->setContentsMargins(0, Scale(4), 0, 0);
    layout->setSpacing(Scale(4));
    layout->addWidget(pnlExportTools);
    layout->addWidget(RichEditControl, 1);
}

void TWizardPublishPage::CreateTools() {
    cmdPrint = ToolButton(QStringLiteral("cmdPrint"), QStringLiteral("Dokument drucken"),
                          style()->standardIcon(QStyle::SP_FileDialogDetailedView));
    cmdExportPDF = ToolButton(QStringLiteral("cmdExportPDF"), QStringLiteral("Als PDF Dokument speichern"),
                              style()->standardIcon(QStyle::SP_DialogSaveButton));
    cmdExport = ToolButton(QStringLiteral("cmdExport"), QStringLiteral("Dokument in dieser Form versenden"),
                           style()->standardIcon(QStyle::SP_ArrowRight));
    cmdZoom = ToolButton(QStringLiteral("cmdZoom"), QStringLiteral("Zoom"),
                         style()->standardIcon(QStyle::SP_FileDialogContentsView));
    acRTCZoomPageWidth = new QAction(QStringLiteral("Auf Seitenbreite einpassen"), this);
    acRTCZoomPageWidth->setObjectName(QStringLiteral("acRTCZoomPageWidth"));
    acRTCZoomWholePage = new QAction(QStringLiteral("Auf ganze Seite einpassen"), this);
    acRTCZoomWholePage->setObjectName(QStringLiteral("acRTCZoomWholePage"));
    auto* menu = new QMenu(cmdZoom);
    menu->addAction(acRTCZoomPageWidth);
    menu->addAction(acRTCZoomWholePage);
    cmdZoom->setMenu(menu);
    cmdZoom->setPopupMode(QToolButton::MenuButtonPopup);

    auto* tools = new QHBoxLayout(pnlExportTools);
    tools->setContentsMargins(0, 0, 0, 0);
    tools->setSpacing(Scale(6));
    for (QToolButton* button : {cmdPrint, cmdExportPDF, cmdExport, cmdZoom})
        tools->addWidget(button);
    tools->addStretch(1);
}

QToolButton* TWizardPublishPage::ToolButton(const QString& AName, const QString& AText, const QIcon& AIcon) {
    auto* button = new QToolButton(pnlExportTools);
    button->setObjectName(AName);
    button->setText(AText);
    button->setIcon(AIcon);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    return button;
}
