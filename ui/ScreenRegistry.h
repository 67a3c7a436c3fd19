#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>

namespace qlon {

// A screen with a load step of its own, run when the screen is first touched, once it can
// already be found by its name.
class LoadedScreen
{
public:
    virtual ~LoadedScreen() = default;
    virtual void Form_Load() = 0;
};

// Every screen exists once, behind its name; touching the name creates the screen if it
// doesn't exist yet. A screen that closes itself for good is deleted and comes back new at
// the next touch.
class ScreenRegistry
{
public:
    using Factory = std::function<QWidget *()>;

    void add(const QString &name, Factory factory);
    bool knows(const QString &name) const { return m_factories.contains(name); }
    QStringList names() const;

    QWidget *touch(const QString &name);
    // A new screen of that name, neither loaded nor kept: the caller owns it. None for an
    // unknown name.
    QWidget *make(const QString &name) const;
    QWidget *existing(const QString &name) const;

    template<typename Screen>
    Screen *touch(const QString &name)
    {
        return qobject_cast<Screen *>(touch(name));
    }

    // Deletes every screen, before the application goes.
    void clear();

private:
    std::map<QString, Factory> m_factories;
    std::map<QString, QPointer<QWidget>> m_screens;
};

ScreenRegistry &Screens();

} // namespace qlon
