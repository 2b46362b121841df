// SPDX-License-Identifier: MIT
#include "CopyAnnouncement.h"

#include <FileReplacement.h>
#include <ProcessMark.h>
#include <RunningProcesses.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString prefix = QStringLiteral(".gui_tmp_machfile_by_");

} // namespace

CopyAnnouncement::CopyAnnouncement(const QString& folder)
    : m_path(QDir(folder).filePath(prefix + ProcessMark::own().word()))
{
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        m_path.clear();
    }
}

CopyAnnouncement::~CopyAnnouncement()
{
    if (!m_path.isEmpty()) {
        FileReplacement::remove(m_path);
    }
}

QVector<CopyAnnouncement::Left> CopyAnnouncement::left(const QString& folder)
{
    QVector<Left> result;
    const QFileInfoList files = QDir(folder).entryInfoList(
        {prefix + QLatin1Char('*')}, QDir::Files | QDir::Hidden, QDir::Time | QDir::Reversed);
    for (const QFileInfo& file : files) {
        const auto owner = ProcessMark::parse(file.fileName().mid(prefix.size()));
        if (owner && !owner->hasEnded()) {
            return {};
        }
        if (owner && !file.isSymLink() && RunningProcesses::isOwnFile(file)) {
            result.append({file.filePath(), file.lastModified().toMSecsSinceEpoch()});
        }
    }
    return result;
}
