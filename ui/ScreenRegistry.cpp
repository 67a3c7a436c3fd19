#include "ui/ScreenRegistry.h"

#include "platform/SiteSettings.h"
#include "ui/Dialogs.h"
#include "ui/ScreenFit.h"
#include "ui/ScreenKeys.h"
#include "ui/TabOrder.h"
#include "ui/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>

namespace qlon {

void ScreenRegistry::add(const QString &name, Factory factory)
{
    m_factories[name] = std::move(factory);
}

QStringList ScreenRegistry::names() const
{
    QStringList names;
    for (const auto &entry : m_factories)
        names.append(entry.first);
    return names;
}

QWidget *ScreenRegistry::touch(const QString &name)
{
    if (QWidget *screen = existing(name))
        return screen;
    QWidget *screen = make(name);
    if (!screen)
        return nullptr;
    m_screens[name] = screen;
    if (auto *loaded = dynamic_cast<LoadedScreen *>(screen))
        loaded->Form_Load();
    return screen;
}

QWidget *ScreenRegistry::make(const QString &name) const
{
    const auto factory = m_factories.find(name);
    if (factory == m_factories.end())
        return nullptr;
    QWidget *screen = factory->second();
    screen->setObjectName(name);
    SetTabOrderByLayout(screen);
    AddStandardKeys(screen);
    NameControlsFromLabels(screen);
    // On a desktop, a screen larger than the display scrolls, and comes back where it was left; a
    // run without one is left as laid out, and keeps nothing.
    const QScreen *display = QGuiApplication::primaryScreen();
    if (display && QGuiApplication::platformName() != QLatin1String("offscreen") && !Dialogs::scripted()) {
        FitOnDisplay(screen, display->availableGeometry().size());
        RememberWindowPlace(screen, SiteSettings::defaultFile());
    }
    return screen;
}

QWidget *ScreenRegistry::existing(const QString &name) const
{
    const auto screen = m_screens.find(name);
    return screen == m_screens.end() ? nullptr : screen->second.data();
}

void ScreenRegistry::clear()
{
    for (auto &entry : m_screens)
        delete entry.second.data();
    m_screens.clear();
}

ScreenRegistry &Screens()
{
    static ScreenRegistry registry;
    return registry;
}

} // namespace qlon
