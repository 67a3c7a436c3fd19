#pragma once

#include "core/RecordFile.h"
#include "core/TextFile.h"

#include <map>
#include <memory>

namespace qlon {

// The program's open files by file number. A procedure opens its file under its own fixed
// number; a file it leaves open stays open, and locked if it was, until the next CloseAll,
// whoever calls it.
class FileTable
{
public:
    RecordFile &OpenRandom(int number, const QString &hostPath, int recordSize);
    TextFile &OpenText(int number, const QString &hostPath, TextFile::Mode mode);

    RecordFile &recordFile(int number);
    TextFile &textFile(int number);

    bool isOpen(int number) const { return m_files.contains(number); }
    std::size_t openCount() const { return m_files.size(); }

    void Close(int number);
    void CloseAll();

private:
    template<typename File, typename... Arguments>
    File &open(int number, Arguments &&...arguments);
    template<typename File>
    File &fileOf(int number);

    std::map<int, std::unique_ptr<SiteFile>> m_files;
};

FileTable &Files();

// Closes every open file of the program.
inline void CloseAll()
{
    Files().CloseAll();
}

} // namespace qlon
