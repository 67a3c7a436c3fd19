#pragma once

#include <QLineEdit>

namespace qlon {

// A text box that tells, as the old platform's did, when it is clicked and when it gets the
// focus. Its text changes signal textChanged, whoever makes them.
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

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
};

} // namespace qlon
