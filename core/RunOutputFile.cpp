#include "core/RunOutputFile.h"

#include "core/HostPath.h"
#include "core/SiteFile.h"

namespace qlon {

// A site file opened for appending, as a text file opens it, whose writes go to the system at once.
class RunOutputFile::Appending : public SiteFile
{
public:
    explicit Appending(const QString &hostPath)
        : SiteFile(hostPath, QIODevice::WriteOnly | QIODevice::Append)
    {
    }

    void write(QByteArrayView bytes)
    {
        file().write(bytes.data(), bytes.size());
        file().flush();
    }
};

RunOutputFile::RunOutputFile() = default;
RunOutputFile::~RunOutputFile() = default;

void RunOutputFile::append(const QByteArray &sitePath, QByteArrayView bytes)
{
    if (!m_file || sitePath != m_sitePath) {
        close();
        m_file = std::make_unique<Appending>(HostPath(sitePath));
        m_sitePath = sitePath;
    }
    m_file->write(bytes);
}

void RunOutputFile::close()
{
    m_file.reset();
    m_sitePath.clear();
}

} // namespace qlon
