#include "TStartupProbe.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>

bool TStartupProbe::Requested() {
    return qEnvironmentVariableIntValue(EnvironmentVariable) == 1;
}

TStartupProbe::TStartupProbe(QWidget* AWindow)
    : QObject(AWindow)
    , FWindow(AWindow) {
    AWindow->installEventFilter(this);
}

bool TStartupProbe::eventFilter(QObject* AWatched, QEvent* AEvent) {
    if (!FDone && AWatched == FWindow && AEvent->type() == QEvent::Paint) {
        FDone = true;
        // the moment is compared with a clock outside the process, so it is the wall clock
        const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::system_clock::now().time_since_epoch());
        std::printf("first-paint-epoch-ms=%lld\n", static_cast<long long>(now.count()));
        std::fflush(stdout);
        // the frame is finished before the window goes
        QTimer::singleShot(0, FWindow, &QWidget::close);
    }
    return QObject::eventFilter(AWatched, AEvent);
}
