#pragma once

#include <QHash>
#include <QIcon>
#include <QProxyStyle>

namespace qlon {

// The platform's style, whose standard icons are each made once and then shared: every calendar
// of the screens asks for its two arrows, and the style decodes their images anew at each asking.
class SharedIconsStyle : public QProxyStyle
{
public:
    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption *option = nullptr, const QWidget *widget = nullptr) const override;

private:
    // By the icon and the layout direction, which turns the arrows of some.
    mutable QHash<std::pair<int, int>, QIcon> m_icons;
};

} // namespace qlon
