#include "ui/WindowPlace.h"

#include <QEvent>
#include <QSettings>
#include <QWidget>

namespace qlon {

namespace {

QString keyOf(const QWidget *screen)
{
    return QStringLiteral("windows/") + screen->objectName();
}

class PlaceKeeper : public QObject
{
public:
    PlaceKeeper(QWidget *screen, QString settingsFile)
        : QObject(screen)
        , m_settingsFile(std::move(settingsFile))
    {
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide) {
            auto *screen = static_cast<QWidget *>(watched);
            QSettings(m_settingsFile, QSettings::IniFormat).setValue(keyOf(screen), screen->saveGeometry());
        }
        return false;
    }

private:
    QString m_settingsFile;
};

} // namespace

void RememberWindowPlace(QWidget *screen, const QString &settingsFile)
{
    const QByteArray place = QSettings(settingsFile, QSettings::IniFormat).value(keyOf(screen)).toByteArray();
    if (!place.isEmpty())
        screen->restoreGeometry(place);
    screen->installEventFilter(new PlaceKeeper(screen, settingsFile));
}

} // namespace qlon
