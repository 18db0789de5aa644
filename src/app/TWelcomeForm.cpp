#include "TWelcomeForm.h"

#include "DBExceptions.h"
#include "Scaling.h"
#include "TEmptyTextGrid.h"
#include "TLastFeedbacksModel.h"
#include "TWelcomeTile.h"
#include "TmodData.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>

using norvik::Scale;

namespace {

// the one welcome page of the process
QPointer<TWelcomeForm> WelcomeForm;

constexpr int RowHeight = 30;
constexpr int ListedFeedbacks = 5;

QString Picture(const QString& AName) {
    return QStringLiteral(":/images/%1.svg").arg(AName);
}

QString Px(int APixels) {
    return QString::number(Scale(APixels)) + QStringLiteral("px");
}

// Calm colours: warm grey for the page, white cards, a muted teal for what may be clicked.
QString StyleSheet() {
    return QStringLiteral(
               "TWelcomeForm { background: #F4F1EC; }"
               "QLabel { color: #33403F; }"
               "QLabel#ktCaptionLabel1 { color: #1F4E5A; }"
               "QLabel#lblLastFeedbacks { color: #1F4E5A; }"
               "TWelcomeTile, QFrame#Panel6 { background: #FFFFFF; border: 1px solid #E2DDD5;"
               " border-radius: %1; }"
               "TWelcomeTile:hover { border: 1px solid #2A7F8E; background: #FBFDFD; }"
               "TWelcomeTile:focus { border: 2px solid #2A7F8E; }"
               "TWelcomeTile QLabel, QFrame#Panel6 QLabel { background: transparent; border: none; }"
               "QTableView#grdDOC { background: transparent; border: none;"
               " selection-background-color: #DCEEF1; selection-color: #1F4E5A; }"
               "QTableView#grdDOC::item { border-bottom: 1px solid #ECE8E2; padding-left: %2; }"
               "QToolButton#cmdConfig { border: 1px solid transparent; border-radius: %3; padding: %4; }"
               "QToolButton#cmdConfig:hover { background: #E6EFF0; border-color: #C9DDE0; }")
        .arg(Px(12), Px(8), Px(8), Px(4));
}

QFont ScaledFont(const QFont& ABase, double AFactor, QFont::Weight AWeight) {
    QFont font = ABase;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * AFactor);
    else
        font.setPixelSize(qRound(font.pixelSize() * AFactor));
    font.setWeight(AWeight);
    return font;
}

QLabel* NewPictureLabel(const QString& AName, const QString& APicture, int ASize, QWidget* AParent) {
    auto* label = new QLabel(AParent);
    label->setObjectName(AName);
    label->setFixedSize(Scale(ASize), Scale(ASize));
    label->setPixmap(QIcon(APicture).pixmap(QSize(Scale(ASize), Scale(ASize)), AParent->devicePixelRatioF()));
    return label;
}

} // namespace

TWelcomeForm* TWelcomeForm::GetWelcomeForm(TmodData& AData) {
    if (!WelcomeForm)
        WelcomeForm = new TWelcomeForm(AData);
    return WelcomeForm;
}

TWelcomeForm* TWelcomeForm::Instance() {
    return WelcomeForm;
}

TWelcomeForm::TWelcomeForm(TmodData& AData)
    : FData(AData) {
    setObjectName(QStringLiteral("WelcomeForm"));
    setAttribute(Qt::WA_StyledBackground);
    CreateComponents();
    setStyleSheet(StyleSheet());
}

TWelcomeForm::~TWelcomeForm() = default;

void TWelcomeForm::CreateComponents() {
    auto* ktCaptionLabel1 = new QLabel(Caption, this);
    ktCaptionLabel1->setObjectName(QStringLiteral("ktCaptionLabel1"));
    ktCaptionLabel1->setFont(ScaledFont(font(), 1.7, QFont::DemiBold));
    auto* pnlMain = new QWidget(this);
    pnlMain->setObjectName(QStringLiteral("pnlMain"));
    auto* mainLayout = new QVBoxLayout(pnlMain);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->setSpacing(Scale(14));
    // the tiles take most of what a larger window offers, up to their height
    mainLayout->addWidget(CreateTiles(), 3);
    mainLayout->addWidget(CreateLastFeedbacks());
    mainLayout->addStretch(1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Scale(28), Scale(20), Scale(28), Scale(8));
    layout->setSpacing(Scale(12));
    layout->addWidget(ktCaptionLabel1);
    layout->addWidget(pnlMain, 1);
    layout->addWidget(CreateFooter());
}

QWidget* TWelcomeForm::CreateTiles() {
    auto* tiles = new QWidget(this);
    tiles->setObjectName(QStringLiteral("pnlTiles"));
    tiles->setMaximumHeight(Scale(TWelcomeTile::DesignMaximumHeight));
    auto* layout = new QHBoxLayout(tiles);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Scale(16));
    // the patient tile reacts to the mouse on its whole face, the others on their parts
    layout->addWidget(AddTile(QStringLiteral("Panel3"), NewFeedbackHtml, QStringLiteral("new-feedback"),
                              &TWelcomeForm::StartWizardClick, false));
    layout->addWidget(AddTile(QStringLiteral("Panel4"), FindFeedbackHtml, QStringLiteral("find-feedback"),
                              &TWelcomeForm::StartFeedbackList, false));
    layout->addWidget(AddTile(QStringLiteral("Panel5"), FindPatientHtml, QStringLiteral("find-patient"),
                              &TWelcomeForm::StartPatientList, true));
    return tiles;
}

TWelcomeTile* TWelcomeForm::AddTile(const QString& AName, const QString& AHtml, const QString& APictureName,
                                    TClickEvent AClick, bool AHoverOnTile) {
    auto* tile = new TWelcomeTile(AName, AHtml, Picture(APictureName),
                                  Picture(APictureName + QStringLiteral("-hover")), this);
    FTiles.append(tile);
    FClickEvents.insert(tile, AClick);
    if (AHoverOnTile)
        FHoverTiles.insert(tile);
    tile->installEventFilter(this);
    for (QWidget* part : tile->Parts())
        part->installEventFilter(this);
    return tile;
}

QWidget* TWelcomeForm::CreateLastFeedbacks() {
    auto* Panel6 = new QFrame(this);
    Panel6->setObjectName(QStringLiteral("Panel6"));
    auto* lblLastFeedbacks = new QLabel(LastFeedbacksCaption, Panel6);
    lblLastFeedbacks->setObjectName(QStringLiteral("lblLastFeedbacks"));
    lblLastFeedbacks->setFont(ScaledFont(font(), 1.3, QFont::DemiBold));
    QLabel* picture = NewPictureLabel(QStringLiteral("imgLastFeedbacks"),
                                      Picture(QStringLiteral("last-feedbacks")), 56, Panel6);

    tvDOC = new TLastFeedbacksModel(this);
    tvDOC->setObjectName(QStringLiteral("tvDOC"));
    grdDOC = new TEmptyTextGrid(Panel6);
    grdDOC->setObjectName(QStringLiteral("grdDOC"));
    grdDOC->setModel(tvDOC);
    grdDOC->SetEmptyText(NoFeedbacksText);
    grdDOC->setColumnHidden(TLastFeedbacksModel::tvDOCDOCID, true);
    grdDOC->verticalHeader()->setDefaultSectionSize(Scale(RowHeight));
    // room for the five rows, no more; a small window scrolls them
    grdDOC->setMaximumHeight(Scale(RowHeight) * ListedFeedbacks + 2 * grdDOC->frameWidth());
    grdDOC->setMinimumHeight(Scale(RowHeight) * 2);
    QHeaderView* columns = grdDOC->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Stretch);
    columns->setSectionResizeMode(TLastFeedbacksModel::tvDOCColumn1, QHeaderView::Fixed);
    columns->resizeSection(TLastFeedbacksModel::tvDOCColumn1,
                           grdDOC->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00")) +
                               Scale(32));

    auto* listLayout = new QVBoxLayout;
    listLayout->setSpacing(Scale(8));
    listLayout->addWidget(lblLastFeedbacks);
    listLayout->addWidget(grdDOC, 1);
    auto* layout = new QHBoxLayout(Panel6);
    layout->setContentsMargins(Scale(20), Scale(14), Scale(20), Scale(12));
    layout->setSpacing(Scale(20));
    layout->addWidget(picture, 0, Qt::AlignTop);
    layout->addLayout(listLayout, 1);
    return Panel6;
}

QWidget* TWelcomeForm::CreateFooter() {
    auto* footer = new QWidget(this);
    auto* layout = new QHBoxLayout(footer);
    layout->setContentsMargins(0, 0, 0, 0);
    cmdConfig = new QToolButton(footer);
    cmdConfig->setObjectName(QStringLiteral("cmdConfig"));
    cmdConfig->setIcon(QIcon(Picture(QStringLiteral("settings"))));
    cmdConfig->setIconSize(QSize(Scale(26), Scale(26)));
    cmdConfig->setToolTip(QStringLiteral("Einstellungen"));
    cmdConfig->setCursor(Qt::PointingHandCursor);
    cmdConfig->setEnabled(false);
    connect(cmdConfig, &QToolButton::clicked, this, [this] { cmdConfigClick(cmdConfig); });
    layout->addStretch();
    layout->addWidget(cmdConfig);
    return footer;
}

void TWelcomeForm::SetOnStartConfig(TnvStartFormEvent AEvent) {
    FOnStartConfig = std::move(AEvent);
    cmdConfig->setEnabled(bool(FOnStartConfig));
}

void TWelcomeForm::RefreshLastPage() {
    norvik::InvDBConnection* connection = FData.GetConnection();
    if (!connection)
        throw norvik::EDBConnectionException(QStringLiteral("Die Datenbank konnte nicht geöffnet werden."));
    tvDOC->Refresh(*connection);
}

void TWelcomeForm::Raise(const TnvStartFormEvent& AEvent) {
    if (AEvent)
        AEvent(this);
}

void TWelcomeForm::StartWizardClick(QObject*) {
    Raise(FOnStartWizard);
}

void TWelcomeForm::cmdConfigClick(QObject*) {
    Raise(FOnStartConfig);
}

void TWelcomeForm::StartFeedbackList(QObject*) {
    Raise(FOnStartFeedbackList);
}

void TWelcomeForm::StartPatientList(QObject*) {
    Raise(FOnStartPatientList);
}

void TWelcomeForm::ElementMouseEnter(QObject* Sender) {
    PanelMouseEnter(Sender->parent());
}

void TWelcomeForm::ElementMouseLeave(QObject* Sender) {
    PanelMouseLeave(Sender->parent());
}

QWidget* TWelcomeForm::HoverPictureOf(QObject* APanel) {
    auto* tile = qobject_cast<TWelcomeTile*>(APanel);
    return tile ? tile->HoverPicture() : nullptr;
}

void TWelcomeForm::PanelMouseEnter(QObject* Sender) {
    if (QWidget* hover = HoverPictureOf(Sender))
        hover->show();
}

void TWelcomeForm::PanelMouseLeave(QObject* Sender) {
    if (QWidget* hover = HoverPictureOf(Sender))
        hover->hide();
}

bool TWelcomeForm::IsTile(const QObject* AObject) const {
    return AObject && FClickEvents.contains(AObject);
}

bool TWelcomeForm::eventFilter(QObject* AWatched, QEvent* AEvent) {
    const bool isTile = IsTile(AWatched);
    const bool isPart = !isTile && IsTile(AWatched->parent());
    if (!isTile && !isPart)
        return QWidget::eventFilter(AWatched, AEvent);
    switch (AEvent->type()) {
    case QEvent::Enter:
        if (isPart)
            ElementMouseEnter(AWatched);
        else if (FHoverTiles.contains(AWatched))
            PanelMouseEnter(AWatched);
        break;
    case QEvent::Leave:
        if (isPart)
            ElementMouseLeave(AWatched);
        else if (FHoverTiles.contains(AWatched))
            PanelMouseLeave(AWatched);
        break;
    case QEvent::MouseButtonRelease:
        if (IsClick(AWatched, static_cast<QMouseEvent*>(AEvent))) {
            (this->*FClickEvents.value(isTile ? AWatched : AWatched->parent()))(AWatched);
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (isTile && IsChoiceKey(static_cast<QKeyEvent*>(AEvent))) {
            (this->*FClickEvents.value(AWatched))(AWatched);
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(AWatched, AEvent);
}

bool TWelcomeForm::IsChoiceKey(const QKeyEvent* AEvent) {
    const int key = AEvent->key();
    const bool plain = (AEvent->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return plain && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space);
}

bool TWelcomeForm::IsClick(QObject* AWatched, const QMouseEvent* AEvent) {
    const auto* widget = static_cast<QWidget*>(AWatched);
    return AEvent->button() == Qt::LeftButton && widget->rect().contains(AEvent->position().toPoint());
}
