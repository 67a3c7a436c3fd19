#pragma once

#include <QByteArray>

#include <memory>

namespace qlon {

// A text file that a run appends to item after item, kept open for appending while its site path
// stays the same rather than opened and closed for each item. Each write goes to the system at
// once, so a copy of the file taken between two items holds every line written so far, as it did
// when the file was closed after each item; writes land at the end of the file, wherever other
// openings have left it.
class RunOutputFile
{
public:
    RunOutputFile();
    ~RunOutputFile();
    RunOutputFile(const RunOutputFile &) = delete;
    RunOutputFile &operator=(const RunOutputFile &) = delete;

    void append(const QByteArray &sitePath, QByteArrayView bytes);
    void close();

private:
    class Appending;

    QByteArray m_sitePath;
    std::unique_ptr<Appending> m_file;
};

} // namespace qlon
