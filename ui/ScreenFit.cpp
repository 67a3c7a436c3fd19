#include "ui/ScreenFit.h"

#include <QLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>

namespace qlon {

bool FitOnDisplay(QWidget *screen, const QSize &available)
{
    QLayout *layout = screen->layout();
    const QSize least = screen->minimumSizeHint();
    if (!layout || (least.width() <= available.width() && least.height() <= available.height()))
        return false;
    // The content takes the screen's layout over, with every control in it; the controls that
    // stand outside the layout, such as a keypad shown over the form, stay above the area.
    auto *content = new QWidget;
    content->setLayout(layout);
    auto *area = new QScrollArea(screen);
    area->setObjectName(QStringLiteral("screenArea"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    auto *frame = new QVBoxLayout(screen);
    frame->setContentsMargins({});
    frame->addWidget(area);
    area->lower();
    screen->resize(screen->size().boundedTo(available));
    return true;
}

} // namespace qlon
