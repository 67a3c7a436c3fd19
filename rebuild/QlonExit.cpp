#include "rebuild/QlonExit.h"

#include "core/Yield.h"
#include "rebuild/LatestProgress.h"
#include "rebuild/logic/RebuildItems.h"
#include "ui/Controls.h"
#include "ui/Program.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace qlon {

namespace {

constexpr int startDelayMilliseconds = 100;

QLabel *panel(QWidget *parent, const QString &name, const QString &caption)
{
    auto *created = MakeLabel(parent, name, caption);
    created->setFrameShape(QFrame::Panel);
    created->setFrameShadow(QFrame::Raised);
    created->setAlignment(Qt::AlignCenter);
    return created;
}

} // namespace

QlonExit::QlonExit(QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Rebuild Items"));
    setAttribute(Qt::WA_DeleteOnClose);
    SSPanel1 = panel(this, QStringLiteral("SSPanel1"), QStringLiteral("Updating Data"));
    SSPanel2 = panel(this, QStringLiteral("SSPanel2"), QStringLiteral("Just a Moment"));
    ProgressBar1 = Named(new QProgressBar(this), QStringLiteral("ProgressBar1"));
    Label1 = MakeLabel(this, QStringLiteral("Label1"), QStringLiteral("Item Count"));
    Label2 = MakeLabel(this, QStringLiteral("Label2"), QStringLiteral("000"));
    Label3 = MakeLabel(this, QStringLiteral("Label3"), QString());

    auto *count = new QHBoxLayout;
    count->addWidget(Label1);
    count->addWidget(Label2);
    count->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(SSPanel1);
    layout->addWidget(SSPanel2);
    layout->addWidget(ProgressBar1);
    layout->addLayout(count);
    layout->addWidget(Label3);
}

void QlonExit::Form_Load()
{
    RebuildItems::EmptyTempFiles();
    // The run starts once the screen has painted.
    StartOneShot(this, startDelayMilliseconds, [this] { Timer1_Timer(); });
}

void QlonExit::Timer1_Timer()
{
    Label3->setText(QStringLiteral("Building Data"));
    LatestProgress progress(ProgressBar1, Label2);
    RebuildItems run({
        [&progress](int minimum, int maximum) { progress.setRange(minimum, maximum); },
        [&progress](int value) { progress.setValue(value); },
        [&progress](int count) { progress.setCount(count); },
        [this, &progress] {
            if (m_pause.isDue())
                progress.show();
            m_pause();
        },
    });
    run.Run();
    close();
}

} // namespace qlon
