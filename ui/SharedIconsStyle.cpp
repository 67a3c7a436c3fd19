#include "ui/SharedIconsStyle.h"

#include <QGuiApplication>
#include <QWidget>

namespace qlon {

QIcon SharedIconsStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption *option, const QWidget *widget) const
{
    // An option may ask for anything of the icon: such a call is answered afresh.
    if (option)
        return QProxyStyle::standardIcon(standardIcon, option, widget);
    const Qt::LayoutDirection direction = widget ? widget->layoutDirection() : QGuiApplication::layoutDirection();
    const std::pair<int, int> key{standardIcon, direction};
    auto known = m_icons.constFind(key);
    if (known == m_icons.constEnd())
        known = m_icons.insert(key, QProxyStyle::standardIcon(standardIcon, nullptr, widget));
    return *known;
}

} // namespace qlon
