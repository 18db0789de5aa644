#pragma once

#include <QObject>
#include <QString>

namespace norvik {

// Sets properties of a form's components from text, so that texts and settings can change
// without a new build. Each line is "path=value", trimmed. The path names components
// separated by "." (each looked for among the children of the object reached so far, then
// among its properties that hold an object) and ends in a property. Special cases: "Parent"
// moves a control into the named control; an enumeration or a set takes its value by name;
// "$" in front of a number for an integer property means hexadecimal; "nil" clears an object
// property; any other value of an object property names a component of the form.
// A line that cannot be applied beeps and is passed over. Returns the number of such lines.
int SetTextProperties(QObject* AForm, const QString& AText);

// one line as above; false when it cannot be applied
bool SetTextProperty(QObject* AForm, const QString& ALine);

} // namespace norvik
