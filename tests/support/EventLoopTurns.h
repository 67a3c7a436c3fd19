#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <functional>

namespace qlon::test {

// Counts the turns of the event loop from its making: an event posted to itself is served once
// a turn and posts the next. `onTurn` runs at each turn, to look at the screens as they stand then.
class EventLoopTurns : public QObject
{
public:
    explicit EventLoopTurns(std::function<void()> onTurn = {})
        : m_onTurn(std::move(onTurn))
    {
        post();
    }

    int count() const { return m_turns; }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != turnEvent)
            return QObject::event(event);
        ++m_turns;
        if (m_onTurn)
            m_onTurn();
        post();
        return true;
    }

private:
    static constexpr QEvent::Type turnEvent = QEvent::User;

    void post() { QCoreApplication::postEvent(this, new QEvent(turnEvent)); }

    int m_turns = 0;
    std::function<void()> m_onTurn;
};

} // namespace qlon::test
