// Runs a harness over files and folders of inputs, one input a file, as libFuzzer runs a
// corpus: what the ordinary test run uses to replay the seeds and every fault ever found,
// without the fuzzer's runtime.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace
{

int run(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return 1;
    }
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()),
                           size_t(bytes.size()));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    int inputs = 0;
    int failures = 0;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QFile::decodeName(argv[i]);
        if (QFileInfo(arg).isDir()) {
            QStringList files;
            QDirIterator it(arg, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
            while (it.hasNext())
                files << it.next();
            files.sort();
            for (const QString& f : files) {
                failures += run(f);
                ++inputs;
            }
        } else if (QFileInfo(arg).isFile()) {
            failures += run(arg);
            ++inputs;
        }
    }
    std::printf("%d inputs ran cleanly\n", inputs - failures);
    return failures == 0 && inputs > 0 ? 0 : 1;
}
