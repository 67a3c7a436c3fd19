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

FieldReader &TextFile::reader()
{
    if (!m_reader)
        throw RuntimeError(RuntimeError::BadFileNameOrNumber, hostPath());
    return *m_reader;
}

bool TextFile::AtEnd()
{
    return reader().AtEnd();
}

QByteArray TextFile::ReadField()
{
    return reader().ReadField();
}

qsizetype TextFile::ReadFields(std::span<QByteArrayView> fields)
{
    return reader().ReadFields(fields);
}

namespace {
template<typename Out, typename Texts>
void appendQuotedLine(Out &out, const Texts &texts)
{
    // One resize and plain copies: the sales trace appends a million of these lines.
    qsizetype length = 2;
    for (QByteArrayView text : texts)
        length += text.size() + 3;
    if (!std::empty(texts))
        --length;
    const auto start = out.size();
    out.resize(start + length);
    char *cursor = out.data() + start;
    bool first = true;
    for (QByteArrayView text : texts) {
        if (!first)
            *cursor++ = ',';
        first = false;
        *cursor++ = '"';
        cursor = std::copy_n(text.data(), text.size(), cursor);
        *cursor++ = '"';
    }
    *cursor++ = '\r';
    *cursor = '\n';
}
} // namespace

void AppendQuotedLine(QByteArray &out, std::initializer_list<QByteArrayView> texts)
{
    appendQuotedLine(out, texts);
}

void AppendQuotedLine(std::string &out, std::initializer_list<QByteArrayView> texts)
{
    appendQuotedLine(out, texts);
}

void TextFile::WriteFields(const QByteArrayList &texts)
{
    QByteArray line;
    appendQuotedLine(line, texts);
    WriteLines(line);
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
