#pragma once

#include <QByteArray>
#include <QByteArrayList>

namespace qlon {

// The fields of list rows read one after another, where a row short of fields keeps, in each
// field it lacks, what the row before had there; the old loops split each row into the same
// variables and left alone those the row had no value for.
class CarriedFields
{
public:
    enum class LastField {
        Counts, // every field the row has is read
        NeedsSeparator, // a field is read only when a separator follows it
    };

    explicit CarriedFields(int count, LastField last = LastField::Counts, char separator = '|');

    void read(const QByteArray &row);
    // How many fields the last row read gave.
    int fieldsRead() const { return m_fieldsRead; }
    const QByteArray &operator[](int field) const { return m_fields.at(field); }

private:
    QByteArrayList m_fields;
    LastField m_last;
    char m_separator;
    int m_fieldsRead = 0;
};

} // namespace qlon
