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

signals:
    void Click();
    void GotFocus();
    void LostFocus();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace qlon
