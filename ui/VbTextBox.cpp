#include "ui/VbTextBox.h"

namespace qlon {

VbTextBox::VbTextBox(const QString &text, QWidget *parent)
    : QLineEdit(text, parent)
{
}

void VbTextBox::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
    emit Click();
}

void VbTextBox::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    emit GotFocus();
}

void VbTextBox::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    emit LostFocus();
}

} // namespace qlon
