// SPDX-License-Identifier: MIT
#include "MachinesFileStore.h"

#include <InputFile.h>
#include <MachinesFile.h>
#include <OutputFile.h>

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* beginning = "# The machines for parallel runs, one a line:\n"
                                  "#\n"
                                  "#   host:count\n"
                                  "#\n";

} // namespace

MachinesFileStore::MachinesFileStore()
{
    const common_IApplicationInfo* const info = GET_SERVICE(common_IApplicationInfo);
    const QString name = QStringLiteral("machines.kest");
    m_fileName = QDir(info->userSettingsDirectory()).filePath(name);
    m_origin = m_fileName;
    if (QFileInfo::exists(m_fileName)) {
        m_original = contentOf(m_fileName, &m_readError);
        m_content = m_original.value_or(QByteArray());
        return;
    }
    const QString shared =
        QDir(info->installationDirectory()).filePath(QStringLiteral("shared/mpi/") + name);
    const std::optional<QByteArray> installed = contentOf(shared);
    m_origin = installed ? shared : QString();
    m_content = installed.value_or(QByteArray(beginning));
}

std::optional<QByteArray> MachinesFileStore::contentOf(const QString& path, QString* problem)
{
    suite::InputFile file(path);
    std::optional<QByteArray> content = file.read(suite::MachinesFile::largestFile);
    if (problem != nullptr) {
        *problem = file.reason();
    }
    return content;
}

bool MachinesFileStore::hasChanged() const
{
    return contentOf(m_fileName) != m_original;
}

QString MachinesFileStore::save(const QByteArray& content)
{
    QDir().mkpath(QFileInfo(m_fileName).absolutePath());
    suite::OutputFile file(m_fileName);
    if (!file.replace(content)) {
        return file.reason();
    }
    m_original = content;
    m_content = content;
    return QString();
}
