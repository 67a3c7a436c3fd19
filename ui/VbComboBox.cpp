#include "ui/VbComboBox.h"

#include "core/Ansi.h"
#include "core/RuntimeError.h"

#include <QLineEdit>
#include <QSignalBlocker>

namespace qlon {

namespace {

// Qt selects the first entry of a box that was empty and drops the text of a box that is
// cleared; this puts the shown text and the picked entry back as they were.
template<typename Change>
void keepingShownText(QComboBox &box, Change change)
{
    const QString shownText = box.currentText();
    const int pickedIndex = box.currentIndex();
    const QSignalBlocker quiet(box);
    change();
    const int keptIndex = pickedIndex < box.count() ? pickedIndex : -1;
    if (box.currentIndex() != keptIndex)
        box.setCurrentIndex(keptIndex);
    // Setting the same text again would lay it out again, once per entry of a long list.
    if (box.currentText() != shownText)
        box.setEditText(shownText);
}

} // namespace

VbComboBox::VbComboBox(QWidget *parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // The box keeps its width whatever its entries hold: a name of any length in a station's
    // list never widens the screen.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(10);
    // The old box completed nothing while the user typed.
    setCompleter(nullptr);
    // A typed text that equals an entry stays typed text: leaving the box is not a pick.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::textEdited, this, &VbComboBox::Change);
    connect(this, &QComboBox::activated, this, &VbComboBox::Click);
}

QByteArray VbComboBox::text() const
{
    return ToAnsi(currentText());
}

void VbComboBox::setText(const QByteArray &text)
{
    if (text == this->text())
        return;
    setEditText(FromAnsi(text));
    emit Change();
}

void VbComboBox::addEntry(const QByteArray &text)
{
    keepingShownText(*this, [&] { addItem(FromAnsi(text)); });
}

QByteArray VbComboBox::entryText(int index) const
{
    return ToAnsi(itemText(checkedEntry(index)));
}

qint32 VbComboBox::entryNumber(int index) const
{
    return itemData(checkedEntry(index)).toInt();
}

void VbComboBox::setEntryNumber(int index, qint32 number)
{
    setItemData(checkedEntry(index), number);
}

void VbComboBox::clearEntries()
{
    keepingShownText(*this, [&] { clear(); });
}

void VbComboBox::pick(int index)
{
    setCurrentIndex(checkedEntry(index));
    emit Click();
}

bool VbComboBox::pickText(const QByteArray &text)
{
    const int index = findText(FromAnsi(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        return false;
    pick(index);
    return true;
}

int VbComboBox::checkedEntry(int index) const
{
    if (index < 0 || index >= count())
        throw RuntimeError(RuntimeError::InvalidPropertyValue, QString::number(index));
    return index;
}

} // namespace qlon
