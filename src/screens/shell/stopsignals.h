#pragma once

#include <QObject>

class QSocketNotifier;

namespace tresvane
{
// Turns the requests to end that a desktop session sends a program (SIGTERM at logout,
// SIGHUP when its terminal goes, SIGINT from Ctrl+C) into one signal on the event loop,
// so the program can leave in order. The handler itself only writes a byte to a pipe.
// One instance at a time.
class StopSignals : public QObject
{
    Q_OBJECT
public:
    explicit StopSignals(QObject* parent = nullptr);
    ~StopSignals() override;

signals:
    void stopRequested();

private:
    QSocketNotifier* m_notifier = nullptr;
};
} // namespace tresvane
