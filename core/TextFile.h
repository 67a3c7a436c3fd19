#pragma once

#include "core/FieldReader.h"
#include "core/SiteFile.h"

#include <QByteArrayList>

#include <optional>
#include <string>

namespace qlon {

// A sequential text file of the site: read field by field, or written in lines.
class TextFile : public SiteFile
{
public:
    enum class Mode { Input, Output, Append };

    // Input fails with "File not found" on a missing file; Output empties or creates the file,
    // Append creates it.
    TextFile(const QString &hostPath, Mode mode);

    bool AtEnd();
    QByteArray ReadField();
    // The next fields as views that hold until the next read; fewer than asked only at the end.
    qsizetype ReadFields(std::span<QByteArrayView> fields);
    // The bytes read so far, in an input file.
    qint64 position() const { return m_reader ? m_reader->position() : 0; }

    // One line of the texts, each in double quotes, separated by commas. A quote inside a
    // text is written as it stands: such a value can't be read back whole.
    void WriteFields(const QByteArrayList &texts);
    // The text and a line end, without quotes.
    void PrintLine(QByteArrayView text);
    // Lines already made, each with its line end.
    void WriteLines(QByteArrayView lines);

private:
    // The reader of an input file; any other mode fails with "Bad file name or number".
    FieldReader &reader();

    std::optional<FieldReader> m_reader;
};

// Appends the line WriteFields writes: each text in double quotes, separated by commas, with
// the line end.
void AppendQuotedLine(QByteArray &out, std::initializer_list<QByteArrayView> texts);
void AppendQuotedLine(std::string &out, std::initializer_list<QByteArrayView> texts);

} // namespace qlon
