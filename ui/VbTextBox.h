#pragma once

#include <QLineEdit>

namespace qlon {

// A text box that tells, as the old platform's did, when it is clicked, when it gets the
// focus and when it loses it. Its text changes signal textChanged, whoever makes them.
class VbTextBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit VbTextBox(const QString &text = {}, QWidget *parent = nullptr);

    // As a user's click, for scripts and tests.
    void click() { emit Click(); }

    // A box that holds a date, such as a span's first day: a script may set it with a date word.
    void setHoldsDate(bool holdsDate) { m_holdsDate = holdsDate; }
    bool holdsDate() const { return m_holdsDate; }

signals:
    void Click();
    void GotFocus();
    void LostFocus();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool m_holdsDate = false;
};

} // namespace qlon
