#include "core/FileTable.h"

namespace qlon {

template<typename File, typename... Arguments>
File &FileTable::open(int number, Arguments &&...arguments)
{
    if (isOpen(number))
        throw RuntimeError(RuntimeError::FileAlreadyOpen);
    auto file = std::make_unique<File>(std::forward<Arguments>(arguments)...);
    File &opened = *file;
    m_files.emplace(number, std::move(file));
    return opened;
}

template<typename File>
File &FileTable::fileOf(int number)
{
    const auto found = m_files.find(number);
    File *file = found == m_files.end() ? nullptr : dynamic_cast<File *>(found->second.get());
    if (!file)
        throw RuntimeError(RuntimeError::BadFileNameOrNumber);
    return *file;
}

RecordFile &FileTable::OpenRandom(int number, const QString &hostPath, int recordSize)
{
    return open<RecordFile>(number, hostPath, recordSize);
}

TextFile &FileTable::OpenText(int number, const QString &hostPath, TextFile::Mode mode)
{
    return open<TextFile>(number, hostPath, mode);
}

RecordFile &FileTable::recordFile(int number)
{
    return fileOf<RecordFile>(number);
}

TextFile &FileTable::textFile(int number)
{
    return fileOf<TextFile>(number);
}

void FileTable::Close(int number)
{
    m_files.erase(number);
}

void FileTable::CloseAll()
{
    m_files.clear();
}

FileTable &Files()
{
    static FileTable table;
    return table;
}

} // namespace qlon
