#pragma once

#include <QObject>

// Measures how soon the program shows itself: at the first paint of the watched window it
// writes "first-paint-epoch-ms=<n>" (milliseconds since 1970, the wall clock) to standard
// output and closes the window, which ends the program. A script that notes the moment it
// started the program gets the start time from the difference.
class TStartupProbe : public QObject {
public:
    // the variable that asks for the probe, with the value 1
    static constexpr const char* EnvironmentVariable = "ORVENNA_STARTUP_PROBE";
    static bool Requested();

    // watches the window; the probe belongs to it
    explicit TStartupProbe(QWidget* AWindow);

protected:
    bool eventFilter(QObject* AWatched, QEvent* AEvent) override;

private:
    QWidget* FWindow;
    bool FDone = false;
};
