#pragma once

#include <QAbstractTableModel>
#include <QByteArray>
#include <QList>
#include <QStringList>

namespace qlon {

// The rows of a list control. A row is a text whose fields, split at the separator, are the
// columns; beside the text each row keeps a tag and a colour value. Callers pass valid rows.
class MListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // The system colour of a button's face: a row of this colour shows the list's own look.
    static constexpr quint32 buttonFace = 0x8000000F;

    explicit MListModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Without headings the list shows each row's whole text in one column.
    void setHeadings(const QStringList &headings);
    char separator() const { return m_separator; }
    void setSeparator(char separator);

    // The text between the separators number `column` and `column` + 1; empty when the text
    // has fewer fields.
    QByteArray fieldOf(const QByteArray &text, int column) const;
    QByteArray field(int row, int column) const { return fieldOf(textAt(row), column); }

    void insertText(int row, const QByteArray &text);
    void removeAt(int row);
    void clearRows();

    const QByteArray &textAt(int row) const { return m_rows.at(row).text; }
    void setTextAt(int row, const QByteArray &text);
    const QByteArray &tagAt(int row) const { return m_rows.at(row).tag; }
    void setTagAt(int row, const QByteArray &tag);
    quint32 colourAt(int row) const { return m_rows.at(row).colour; }
    void setColourAt(int row, quint32 colour);

    // Row i becomes the row that stands at order[i] now; selections follow their rows.
    void reorder(const QList<int> &order);

    // One row as the model keeps it; moved as plain memory when rows are inserted.
    struct Row
    {
        QByteArray text;
        QByteArray tag;
        quint32 colour = buttonFace;
    };

private:
    QVariant displayText(int row, int column) const;
    void announceRowChanged(int row, int role);

    QList<Row> m_rows;
    QStringList m_headings;
    char m_separator = '|';
};

} // namespace qlon

Q_DECLARE_TYPEINFO(qlon::MListModel::Row, Q_RELOCATABLE_TYPE);
