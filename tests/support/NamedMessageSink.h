#pragma once

#include "TnvNamedMessageEvent.h"

#include <QObject>
#include <QStringList>

namespace testsupport {

// Stands in for a window: collects the named messages that reach it as "name|argument".
class NamedMessageSink : public QObject {
public:
    QStringList Received;

protected:
    bool event(QEvent* AEvent) override {
        if (auto* message = dynamic_cast<norvik::TnvNamedMessageEvent*>(AEvent)) {
            Received << message->Name() + u'|' + message->Argument();
            return true;
        }
        return QObject::event(AEvent);
    }
};

} // namespace testsupport
