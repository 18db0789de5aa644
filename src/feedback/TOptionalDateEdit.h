#pragma once

#include "TnvValidatedEdit.h"
#include "Variant.h"

class QCalendarWidget;

// A date edit that may stay empty: its value is Null or a date, and it shows the date as the
// system's short date or nothing. The user types a date in any form the date parser reads
// ("3.1.26", "heute") or picks one from the calendar behind the button at its right; leaving
// the field writes a readable date in the short form. A text that is no date keeps what was
// typed, counts as empty and shows the error mark of its check.
class TOptionalDateEdit : public norvik::TnvValidatedEdit {
    Q_OBJECT

public:
    // the check of the shown value, as the wizard's fields have it
    using TValueCheck = void (*)(const QString& ADisplayValue, QString& AErrorText, bool& AError);

    explicit TOptionalDateEdit(QWidget* AParent = nullptr);

    // Null or a date
    const norvik::Variant& Value() const { return FValue; }
    // shows the value as its display text
    void SetValue(const norvik::Variant& AValue);
    // the short date of the value, or empty
    QString DisplayValue() const;
    // the check runs on the display value, not on what is typed
    void SetValueCheck(TValueCheck ACheck);

    // opens the calendar under the edit, on the shown date or today
    void ShowCalendar();
    QCalendarWidget* Calendar() const { return FCalendar; }

Q_SIGNALS:
    void ValueChanged();

protected:
    void focusOutEvent(QFocusEvent* AEvent) override;

private:
    norvik::Variant FValue;
    QWidget* FPopup;
    QCalendarWidget* FCalendar;

    QIcon CalendarIcon() const;
    void CreateCalendar();
    void TextEdited(const QString& AText);
    void CalendarClicked(const QDate& ADate);
    void ChangeValue(const norvik::Variant& AValue);
    static norvik::Variant ParseDate(const QString& AText);
};
