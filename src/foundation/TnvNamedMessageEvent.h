#pragma once

#include <QEvent>
#include <QObject>
#include <QString>

namespace norvik {

// A named message on its way to a receiver, with the text that came with it, if any.
class TnvNamedMessageEvent : public QEvent {
public:
    TnvNamedMessageEvent(QEvent::Type AType, const QString& AName, const QString& AArgument);

    QString Name() const { return FName; }
    QString Argument() const { return FArgument; }

private:
    QString FName;
    QString FArgument;
};

// Queues the message for the receiver, to be handled when its thread's event loop next runs.
// False for a name that is not one of the program's messages, or without a receiver.
bool PostNamedMessage(QObject* AReceiver, const QString& AName, const QString& AArgument = QString());

} // namespace norvik
