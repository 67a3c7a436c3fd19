#pragma once

#include <QObject>
#include <QTimer>

namespace qlon {

// A timer of a screen, on the program's clock. It fires in real time, and a script's `advance`
// moves the clock on: every timer due by then fires at once, in the order they fall due, so a
// ten-second refresh is tested in milliseconds.
class ScreenTimer : public QObject
{
    Q_OBJECT

public:
    explicit ScreenTimer(QObject *parent, int interval = 0);
    ~ScreenTimer() override;

    void setSingleShot(bool singleShot) { m_singleShot = singleShot; }
    void start(int interval);
    void start() { start(m_interval); }
    void stop();
    bool isActive() const { return m_due >= 0; }
    // When it fires next, on the program's clock.
    qint64 due() const { return m_due; }

signals:
    void timeout();

private:
    friend void AdvanceClock(qint64 milliseconds);

    void fire();
    void arm();

    int m_interval;
    bool m_singleShot = false;
    qint64 m_due = -1; // on the program's clock; -1 while stopped
    QTimer m_realTime;
};

// Milliseconds on the program's clock: the time it has run, and what scripts advanced it by.
qint64 ProgramClock();

// Lets the screens' timers run as if that much time had passed; repeating timers fire as often
// as they would have.
void AdvanceClock(qint64 milliseconds);

} // namespace qlon
