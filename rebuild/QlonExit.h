#pragma once

#include "core/Yield.h"
#include "ui/ScreenRegistry.h"

#include <QWidget>

class QLabel;
class QProgressBar;

namespace qlon {

// The small screen of Rebuild Items: it opens, runs the rebuild by itself a moment later, shows
// the progress and the count of items gathered, and closes itself at the end.
class QlonExit : public QWidget, public LoadedScreen
{
    Q_OBJECT

public:
    explicit QlonExit(QWidget *parent = nullptr);

    void Form_Load() override;

    QLabel *SSPanel1;
    QLabel *SSPanel2;
    QProgressBar *ProgressBar1;
    QLabel *Label1;
    QLabel *Label2;
    QLabel *Label3;

private:
    void Timer1_Timer();

    // Serves the event loop at a pace the eye can follow, so that the disk sets the speed of
    // the run rather than the painting of every count.
    YieldClock m_pause;
};

} // namespace qlon
