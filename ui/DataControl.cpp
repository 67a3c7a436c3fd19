#include "ui/DataControl.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>

namespace qlon {

namespace {

QToolButton *moveButton(QWidget *parent, const QString &text, const QString &tip)
{
    auto *button = new QToolButton(parent);
    button->setText(text);
    button->setToolTip(tip);
    return button;
}

} // namespace

DataControl::DataControl(QWidget *parent)
    : QWidget(parent)
    , m_caption(new QLabel(this))
{
    m_caption->setAlignment(Qt::AlignCenter);
    m_caption->setFrameShape(QFrame::Panel);
    QToolButton *first = moveButton(this, QStringLiteral("|<"), tr("First row"));
    QToolButton *previous = moveButton(this, QStringLiteral("<"), tr("Previous row"));
    QToolButton *next = moveButton(this, QStringLiteral(">"), tr("Next row"));
    QToolButton *last = moveButton(this, QStringLiteral(">|"), tr("Last row"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(first);
    layout->addWidget(previous);
    layout->addWidget(m_caption, 1);
    layout->addWidget(next);
    layout->addWidget(last);
    connect(first, &QToolButton::clicked, this, &DataControl::moveFirst);
    connect(previous, &QToolButton::clicked, this, &DataControl::movePrevious);
    connect(next, &QToolButton::clicked, this, &DataControl::moveNext);
    connect(last, &QToolButton::clicked, this, &DataControl::moveLast);
}

QString DataControl::caption() const
{
    return m_caption->text();
}

void DataControl::setCaption(const QString &caption)
{
    m_caption->setText(caption);
}

DataGrid::DataGrid(QWidget *parent)
    : QTableView(parent)
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
}

void DataGrid::keyPressEvent(QKeyEvent *event)
{
    const int rows = model() ? model()->rowCount() : 0;
    if (event->key() == Qt::Key_Down && event->modifiers() == Qt::NoModifier && currentIndex().row() >= rows - 1) {
        emit newRowWanted();
        return;
    }
    QTableView::keyPressEvent(event);
}

} // namespace qlon
