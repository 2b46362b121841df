// SPDX-License-Identifier: MIT
// The main function of a fuzzer that was not built for fuzzing: tries the files, and the files in
// the folders, that are named on the command line, once each.

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool replay(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(path), qUtf8Printable(file.errorString()));
        return false;
    }
    std::printf("%s\n", qUtf8Printable(path)); // the last one is the one that ended the process
    std::fflush(stdout);
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
    return true;
}

QStringList inputs(const QString& path)
{
    if (!QFileInfo(path).isDir()) {
        return {path};
    }
    const QDir folder(path);
    QStringList result;
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString& name : names) {
        result.append(folder.filePath(name));
    }
    return result;
}

} // namespace

int main(int count, char* arguments[])
{
    LLVMFuzzerInitialize(&count, &arguments);
    int tried = 0;
    for (int i = 1; i < count; ++i) {
        const QStringList paths = inputs(QString::fromLocal8Bit(arguments[i]));
        for (const QString& path : paths) {
            if (!replay(path)) {
                return 2;
            }
            ++tried;
        }
    }
    std::printf("%d inputs\n", tried);
    return tried > 0 ? 0 : 1; // a folder that is empty by mistake tests nothing
}
