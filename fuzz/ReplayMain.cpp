// Replays a corpus through a fuzz target without libFuzzer: each argument is a file, or a folder
// whose files are all replayed. A target that crashes, hangs or trips a sanitizer fails the run.
#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

int replay(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "can't read %s\n", qPrintable(path));
        return 1;
    }
    const QByteArray input = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()), size_t(input.size()));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    int failures = 0;
    int replayed = 0;
    for (const QString &argument : application.arguments().mid(1)) {
        if (!QFileInfo(argument).isDir()) {
            failures += replay(argument);
            ++replayed;
            continue;
        }
        QDirIterator files(argument, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            failures += replay(files.next());
            ++replayed;
        }
    }
    std::printf("%d inputs replayed\n", replayed);
    return failures == 0 && replayed > 0 ? 0 : 1;
}
