#include "EventLoopWait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace inputtests {

namespace {

void ProcessOnce() {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QThread::msleep(1);
}

} // namespace

bool WaitUntil(const std::function<bool()>& ACondition, int ATimeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (!ACondition()) {
        if (clock.elapsed() > ATimeoutMs)
            return false;
        ProcessOnce();
    }
    return true;
}

void RunEventLoop(int AMilliseconds) {
    QElapsedTimer clock;
    clock.start();
    do
        ProcessOnce();
    while (clock.elapsed() < AMilliseconds);
}

} // namespace inputtests
