#include "TOptionalDateEdit.h"

#include "Clock.h"
#include "DateUtils.h"
#include "Scaling.h"
#include "TDateTimeUtils.h"
#include "TFeedbackWizardState.h"

#include <QAction>
#include <QCalendarWidget>
#include <QPainter>
#include <QVBoxLayout>
#include <cmath>

using norvik::Variant;

TOptionalDateEdit::TOptionalDateEdit(QWidget* AParent)
    : TnvValidatedEdit(AParent)
    , FValue(Variant::null())
    , FPopup(new QWidget(this, Qt::Popup))
    , FCalendar(new QCalendarWidget(FPopup)) {
    CreateCalendar();
    auto* button = new QAction(CalendarIcon(), QStringLiteral("Kalender"), this);
    button->setObjectName(QStringLiteral("calendarButton"));
    addAction(button, QLineEdit::TrailingPosition);
    connect(button, &QAction::triggered, this, &TOptionalDateEdit::ShowCalendar);
    connect(this, &QLineEdit::textEdited, this, &TOptionalDateEdit::TextEdited);
}

QIcon TOptionalDateEdit::CalendarIcon() const {
    // a leaf of a wall calendar: a coloured head over a grid of days
    const int size = norvik::Scale(16);
    QPixmap leaf(size, size);
    leaf.fill(Qt::transparent);
    QPainter painter(&leaf);
    const QColor ink = palette().color(QPalette::Text);
    const QRectF page(1.5, 2.5, size - 3, size - 4);
    painter.setPen(QPen(ink, 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(page);
    painter.fillRect(QRectF(page.left(), page.top(), page.width(), page.height() / 4),
                     palette().color(QPalette::Highlight));
    const double cell = page.width() / 4;
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            painter.fillRect(QRectF(page.left() + cell * (column + 0.6),
                                    page.top() + page.height() * (0.4 + row * 0.28), cell * 0.6, cell * 0.6),
                             ink);
    return QIcon(leaf);
}

void TOptionalDateEdit::CreateCalendar() {
    auto* layout = new QVBoxLayout(FPopup);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FCalendar);
    FCalendar->setLocale(QLocale(QLocale::German, QLocale::Austria));
    FCalendar->setGridVisible(true);
    connect(FCalendar, &QCalendarWidget::clicked, this, &TOptionalDateEdit::CalendarClicked);
    connect(FCalendar, &QCalendarWidget::activated, this, &TOptionalDateEdit::CalendarClicked);
}

void TOptionalDateEdit::SetValue(const Variant& AValue) {
    FValue = AValue.isEmpty() ? Variant::null() : AValue;
    const QString display = DisplayValue();
    if (text() != display)
        setText(display);
}

QString TOptionalDateEdit::DisplayValue() const {
    return TFeedbackWizardState::DateDisplayText(FValue);
}

void TOptionalDateEdit::SetValueCheck(TValueCheck ACheck) {
    SetValidateEvent([this, ACheck](const QString&, QString& AErrorText, bool& AError) {
        ACheck(DisplayValue(), AErrorText, AError);
    });
}

void TOptionalDateEdit::ShowCalendar() {
    const double days = TFeedbackWizardState::DateValue(FValue);
    FCalendar->setSelectedDate(days > 0 ? norvik::TDateTimeUtils::toDate(days) : norvik::Clock::today());
    FPopup->adjustSize();
    FPopup->move(mapToGlobal(rect().bottomLeft()));
    FPopup->show();
    FCalendar->setFocus();
}

void TOptionalDateEdit::focusOutEvent(QFocusEvent* AEvent) {
    // a date that was read is written in its short form; anything else stays as typed
    if (!FValue.isNull() && text() != DisplayValue())
        setText(DisplayValue());
    TnvValidatedEdit::focusOutEvent(AEvent);
}

void TOptionalDateEdit::TextEdited(const QString& AText) {
    const Variant value = ParseDate(AText);
    // the typed text stays, so the value is set without showing it
    if (value != FValue) {
        FValue = value;
        Q_EMIT ValueChanged();
    }
}

void TOptionalDateEdit::CalendarClicked(const QDate& ADate) {
    FPopup->hide();
    ChangeValue(Variant::fromDate(norvik::TDateTimeUtils::fromDate(ADate)));
    setFocus();
    Validate();
}

void TOptionalDateEdit::ChangeValue(const Variant& AValue) {
    const bool changed = AValue != FValue;
    SetValue(AValue);
    if (changed)
        Q_EMIT ValueChanged();
}

Variant TOptionalDateEdit::ParseDate(const QString& AText) {
    norvik::TDateTime date = 0;
    if (AText.trimmed().isEmpty() || norvik::TryTextToDate(AText, date, false) != 1 || date <= 0)
        return Variant::null();
    // the edit holds a day; a time that came with the text is dropped
    return Variant::fromDate(std::floor(date));
}
