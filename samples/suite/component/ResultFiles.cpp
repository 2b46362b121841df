#include "ResultFiles.h"

#include <QFileInfo>

namespace suite {

bool ResultFiles::open(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (QFileInfo(path).isSymLink()) {
            m_error =
                QStringLiteral("the result file '%1' cannot be written, it is a symbolic link")
                    .arg(QFileInfo(path).fileName());
            return false;
        }
        m_files.push_back(std::make_unique<QSaveFile>(path));
        if (!m_files.back()->open(QIODevice::WriteOnly)) {
            return fail(*m_files.back());
        }
    }
    return true;
}

bool ResultFiles::write(int index, const QByteArray& bytes)
{
    QSaveFile& file = *m_files.at(static_cast<std::size_t>(index));
    return file.write(bytes) == bytes.size() || fail(file);
}

bool ResultFiles::commit()
{
    for (const auto& file : m_files) {
        if (!file->flush() || file->error() != QFileDevice::NoError) {
            return fail(*file);
        }
    }
    for (const auto& file : m_files) {
        if (!file->commit()) {
            return fail(*file);
        }
    }
    return true;
}

bool ResultFiles::fail(const QSaveFile& file)
{
    m_error = QStringLiteral("the result file '%1' cannot be written, %2")
                  .arg(QFileInfo(file.fileName()).fileName(), file.errorString());
    return false;
}

} // namespace suite
