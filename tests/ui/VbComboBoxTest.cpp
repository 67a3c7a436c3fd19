#include "ui/VbComboBox.h"

#include "core/RuntimeError.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <gtest/gtest.h>

// The application object comes from the test environment in MListTest.cpp.

namespace qlon {
namespace {

// The 264 times of day of the main screen's time boxes.
QList<QByteArray> timesOfDay()
{
    QList<QByteArray> times;
    for (const char *half : {"am", "pm"}) {
        for (const char *hour : {"12", "01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11"}) {
            for (const char *minute : {"00", "10", "15", "20", "25", "30", "35", "40", "45", "50", "55"})
                times.append(QByteArray(hour) + ':' + minute + ' ' + half);
        }
    }
    return times;
}

class VbComboBoxTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_box.setText(QByteArrayLiteral("More"));
        QObject::connect(&m_box, &VbComboBox::Change, [this] { ++m_changes; });
        QObject::connect(&m_box, &VbComboBox::Click, [this] { ++m_clicks; });
    }
    void fillTimes()
    {
        for (const QByteArray &time : timesOfDay())
            m_box.addEntry(time);
    }
    void focusTheBox()
    {
        m_box.show();
        m_box.activateWindow();
        m_box.lineEdit()->setFocus();
        QApplication::processEvents();
        ASSERT_TRUE(m_box.lineEdit()->hasFocus());
    }
    QString shownText() const { return m_box.lineEdit()->text(); }
    int changes() const { return m_changes; }
    int clicks() const { return m_clicks; }

    VbComboBox m_box;

private:
    int m_changes = 0;
    int m_clicks = 0;
};

// A key as the user presses it, with the character it types.
void press(QWidget *target, int key, const QString &typed = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, typed);
        QApplication::sendEvent(target, &event);
    }
}

void type(QWidget *target, const QString &text)
{
    for (const QChar character : text)
        press(target, character.toUpper().unicode(), QString(character));
}

TEST_F(VbComboBoxTest, AddingEntriesKeepsTheTextAndSignalsNothing)
{
    fillTimes();

    EXPECT_EQ(m_box.entryCount(), 264);
    EXPECT_EQ(m_box.entryText(11), QByteArrayLiteral("01:00 am"));
    EXPECT_EQ(m_box.text(), QByteArrayLiteral("More"));
    EXPECT_EQ(shownText(), QStringLiteral("More"));
    EXPECT_EQ(changes(), 0);
    EXPECT_EQ(clicks(), 0);
}

TEST_F(VbComboBoxTest, ClearingEntriesKeepsTheText)
{
    fillTimes();
    m_box.pick(3);
    m_box.clearEntries();

    EXPECT_EQ(m_box.entryCount(), 0);
    EXPECT_EQ(shownText(), QStringLiteral("12:20 am"));
    EXPECT_EQ(clicks(), 1);
    EXPECT_EQ(changes(), 0);
}

TEST_F(VbComboBoxTest, SettingTheTextSignalsChange)
{
    fillTimes();
    m_box.setText(QByteArrayLiteral("12:00 AM"));

    EXPECT_EQ(shownText(), QStringLiteral("12:00 AM"));
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(clicks(), 0);

    m_box.setText(QByteArrayLiteral("12:00 AM"));
    EXPECT_EQ(changes(), 1) << "the same text again changes nothing";
}

TEST_F(VbComboBoxTest, PickingAnEntrySignalsClickAndShowsTheEntry)
{
    fillTimes();
    m_box.pick(11);

    EXPECT_EQ(m_box.text(), QByteArrayLiteral("01:00 am"));
    EXPECT_EQ(shownText(), QStringLiteral("01:00 am"));
    EXPECT_EQ(clicks(), 1);
    EXPECT_EQ(changes(), 0);
}

TEST_F(VbComboBoxTest, PickingByTextTakesTheFirstExactMatch)
{
    for (const char *department : {"All", "Food", "Beverage", "All"})
        m_box.addEntry(department);
    m_box.setEntryNumber(0, 10);
    m_box.setEntryNumber(3, 40);

    EXPECT_FALSE(m_box.pickText(QByteArrayLiteral("food")));
    EXPECT_EQ(m_box.text(), QByteArrayLiteral("More"));
    EXPECT_EQ(clicks(), 0);

    EXPECT_TRUE(m_box.pickText(QByteArrayLiteral("All")));
    EXPECT_EQ(m_box.text(), QByteArrayLiteral("All"));
    EXPECT_EQ(clicks(), 1);
    EXPECT_EQ(m_box.entryNumber(0), 10);
    EXPECT_EQ(m_box.entryNumber(2), 0);
    EXPECT_EQ(m_box.entryNumber(3), 40);
}

TEST_F(VbComboBoxTest, EntryIndexesOutOfRangeAreInvalidPropertyValues)
{
    m_box.addEntry(QByteArrayLiteral("Food"));

    try {
        m_box.pick(1);
        ADD_FAILURE() << "picking past the last entry went through";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), RuntimeError::InvalidPropertyValue);
    }
    EXPECT_THROW(m_box.entryText(-1), RuntimeError);
    EXPECT_THROW(m_box.setEntryNumber(1, 5), RuntimeError);
    EXPECT_EQ(m_box.text(), QByteArrayLiteral("More"));
    EXPECT_EQ(clicks(), 0);
}

class VbComboBoxUserTest : public VbComboBoxTest
{
};

TEST_F(VbComboBoxUserTest, TypingSignalsChangeAtEachKeystrokeAndCompletesNothing)
{
    fillTimes();
    focusTheBox();
    m_box.lineEdit()->selectAll();

    type(m_box.lineEdit(), QStringLiteral("12:3"));

    EXPECT_EQ(shownText(), QStringLiteral("12:3"));
    EXPECT_EQ(changes(), 4);
    EXPECT_EQ(clicks(), 0);
}

TEST_F(VbComboBoxUserTest, ATypedEntryTextStaysTypedWhenTheUserPressesReturn)
{
    fillTimes();
    focusTheBox();
    m_box.lineEdit()->selectAll();
    type(m_box.lineEdit(), QStringLiteral("12:10 am"));
    press(m_box.lineEdit(), Qt::Key_Return);

    EXPECT_EQ(shownText(), QStringLiteral("12:10 am"));
    EXPECT_EQ(clicks(), 0);
}

TEST_F(VbComboBoxUserTest, ArrowDownAfterFillingPicksTheFirstEntry)
{
    fillTimes();

    press(&m_box, Qt::Key_Down);

    EXPECT_EQ(shownText(), QStringLiteral("12:00 am"));
    EXPECT_EQ(clicks(), 1);
    EXPECT_EQ(changes(), 0);
}

TEST_F(VbComboBoxUserTest, ChoosingFromTheDropDownSignalsClick)
{
    fillTimes();
    m_box.show();
    m_box.showPopup();
    QAbstractItemView *dropDown = m_box.view();
    dropDown->setCurrentIndex(dropDown->model()->index(3, 0));

    press(dropDown, Qt::Key_Return);

    EXPECT_EQ(shownText(), QStringLiteral("12:20 am"));
    EXPECT_EQ(clicks(), 1);
    EXPECT_EQ(changes(), 0);
}

} // namespace
} // namespace qlon
