#include "core/TextFile.h"

namespace qlon {

namespace {
QIODevice::OpenMode openModeOf(TextFile::Mode mode)
{
    switch (mode) {
    case TextFile::Mode::Input: return QIODevice::ReadOnly;
    case TextFile::Mode::Output: return QIODevice::WriteOnly | QIODevice::Truncate;
    case TextFile::Mode::Append: return QIODevice::WriteOnly | QIODevice::Append;
    }
    return QIODevice::ReadOnly;
}
} // namespace

TextFile::TextFile(const QString &hostPath, Mode mode)
    : SiteFile(hostPath, openModeOf(mode))
{
    if (mode == Mode::Input)
        m_reader.emplace(file());
}

bool TextFile::AtEnd()
{
    if (!m_reader)
        throw RuntimeError(RuntimeError::BadFileNameOrNumber, hostPath());
    return m_reader->AtEnd();
}

QByteArray TextFile::ReadField()
{
    if (!m_reader)
        throw RuntimeError(RuntimeError::BadFileNameOrNumber, hostPath());
    return m_reader->ReadField();
}

void TextFile::WriteFields(const QByteArrayList &texts)
{
    QByteArray line;
    for (const QByteArray &text : texts) {
        if (!line.isEmpty())
            line.append(',');
        line.append('"').append(text).append('"');
    }
    PrintLine(line);
}

void TextFile::PrintLine(QByteArrayView text)
{
    if (m_reader)
        throw RuntimeError(RuntimeError::BadFileNameOrNumber, hostPath());
    file().write(text.data(), text.size());
    file().write("\r\n", 2);
}

} // namespace qlon
