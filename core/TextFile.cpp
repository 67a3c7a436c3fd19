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

namespace {
void appendQuoted(QByteArray &out, QByteArrayView text, bool first)
{
    if (!first)
        out.append(',');
    out.append('"').append(text).append('"');
}
} // namespace

void AppendQuotedLine(QByteArray &out, std::initializer_list<QByteArrayView> texts)
{
    bool first = true;
    for (QByteArrayView text : texts) {
        appendQuoted(out, text, first);
        first = false;
    }
    out.append("\r\n");
}

void TextFile::WriteFields(const QByteArrayList &texts)
{
    QByteArray line;
    for (qsizetype index = 0; index < texts.size(); ++index)
        appendQuoted(line, texts[index], index == 0);
    PrintLine(line);
}

void TextFile::PrintLine(QByteArrayView text)
{
    WriteLines(text);
    WriteLines("\r\n");
}

void TextFile::WriteLines(QByteArrayView lines)
{
    if (m_reader)
        throw RuntimeError(RuntimeError::BadFileNameOrNumber, hostPath());
    file().write(lines.data(), lines.size());
}

} // namespace qlon
