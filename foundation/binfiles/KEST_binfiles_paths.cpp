// SPDX-License-Identifier: MIT
#include <KEST_binfiles_paths.h>

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int mostLinks = 40; // as many as Linux follows

} // namespace

QString KEST_binfiles_real_path(const QString& path)
{
    QFileInfo file(path);
    for (int links = 0; file.isSymLink() && !file.exists() && links < mostLinks; ++links) {
        file.setFile(file.symLinkTarget());
    }
    QString existing = file.canonicalFilePath();
    if (!existing.isEmpty()) {
        return existing;
    }
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : QDir(folder).filePath(file.fileName());
}
