#pragma once

#include <QByteArray>
#include <QComboBox>

namespace qlon {

// An editable drop-down box that behaves as the old platform's: its text is free, changing
// the entries never changes the text, and it signals only what a user or a handler does.
// Typing and setText signal Change; a pick from the entries signals Click, and only Click.
// An entry index out of range throws RuntimeError::InvalidPropertyValue.
class VbComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit VbComboBox(QWidget *parent = nullptr);

    QByteArray text() const;
    // Signals Change when the text differs from the one shown.
    void setText(const QByteArray &text);

    void addEntry(const QByteArray &text);
    int entryCount() const { return count(); }
    QByteArray entryText(int index) const;
    // A whole number kept with each entry, 0 until set.
    qint32 entryNumber(int index) const;
    void setEntryNumber(int index, qint32 number);
    void clearEntries();

    // As a user's pick: the text becomes the entry's.
    void pick(int index);
    // Picks the first entry whose text is exactly this; false when there is none.
    bool pickText(const QByteArray &text);

signals:
    void Change();
    void Click();

private:
    int checkedEntry(int index) const;
};

} // namespace qlon
