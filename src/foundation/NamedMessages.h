#pragma once

#include <QEvent>
#include <QString>
#include <QStringList>

namespace norvik {

// Messages known by name, so that forms, units and other programs can ask for something
// without knowing each other. Each name gets an event type of its own the first time it is
// asked for, and keeps it for the life of the process.
namespace NamedMessages {

inline const QString FeedBackClose = QStringLiteral("FeedBackClose");
inline const QString ResetFocus = QStringLiteral("ResetFocus");
inline const QString RefocusAgain = QStringLiteral("nvRefocusAgain");
inline const QString OpenRecord = QStringLiteral("norvik_open_record");
inline const QString CloseToolsForUpdate = QStringLiteral("norvik_close_tools_for_update");
inline const QString CloseMyApplication = QStringLiteral("CloseMyApplication");
inline const QString EvaluateColorScheme = QStringLiteral("WMEvaluateColorScheme");
inline const QString CheckSmartHelpDisplay = QStringLiteral("WMSM_CHECKSMARTHELPDISPLAY");

// the messages of the program, in the order they are registered at start
QStringList All();

} // namespace NamedMessages

// The event type of a message name; letter case does not matter, as with the names the
// operating system registers. The same name always gives the same type.
QEvent::Type RegisterNamedMessage(const QString& AName);
// the type of one of the program's own messages, QEvent::None for any other name
QEvent::Type NamedMessageType(const QString& AName);
// gives every message of the program its type; done once at start
void RegisterNamedMessages();

} // namespace norvik
