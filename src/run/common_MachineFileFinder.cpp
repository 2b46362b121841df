// SPDX-License-Identifier: MIT
#include <common_MachineFileFinder.h>

#include "common_ErrorQuery.h"

#include <common_EnvironmentVariablesExt.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <limits>

namespace {

QString expandedVariable(const char* name)
{
    return common_EnvironmentVariablesExt::getVariableExpanded(name);
}

QString joined(const QStringList& parts)
{
    return parts.join(QDir::separator());
}

// Opens the file for reading. Returns an empty text on success, or else the reason. Only regular
// files are opened: opening a pipe waits for its other end, and a device may never end.
QString openingError(QFile& file)
{
    const QFileInfo info(file.fileName());
    if (info.exists() && !info.isFile() && !info.isDir()) {
        return QStringLiteral("it is not a regular file");
    }
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}

// An entry without a count means one process; a count that is not a number means none.
int processesOf(const QString& entry)
{
    const QStringList parts = entry.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    return parts.size() >= 2 ? parts.at(1).toInt() : 1;
}

} // namespace

common_MachineFileFinder::common_MachineFileFinder()
{
    search();
    determineProcesses();
}

common_MachineFileFinder::~common_MachineFileFinder() = default;

void common_MachineFileFinder::search()
{
    const QString name = QStringLiteral("machines.kest");
    m_pFile = std::make_unique<QFileInfo>(joined({expandedVariable("KEST_USER_HOME"), name}));
    m_localFile = m_pFile->exists();
    m_valid = m_localFile;
    if (m_localFile) {
        return;
    }
    *m_pFile = QFileInfo(joined(
        {expandedVariable("KEST_HOME"), QStringLiteral("shared"), QStringLiteral("mpi"), name}));
    m_valid = m_pFile->exists();
    if (m_valid) {
        qDebug("Found a valid file - in KEST_HOME");
    }
}

bool common_MachineFileFinder::isValid() const
{
    return m_valid;
}

bool common_MachineFileFinder::isLocalFile() const
{
    return m_localFile;
}

int common_MachineFileFinder::getProcesses() const
{
    return m_processes;
}

QFileInfo* common_MachineFileFinder::getMachineFileInfo() const
{
    return m_pFile.get();
}

QStringList common_MachineFileFinder::parseMachinesFile()
{
    QStringList entries;
    if (!m_valid) {
        return entries;
    }
    QFile file(m_pFile->absoluteFilePath());
    const QString reason = openingError(file);
    if (!reason.isEmpty()) {
        common_showError(QStringLiteral("Open failed"),
                         QStringLiteral("Could not open the following file :\n%1.\nReason: %2")
                             .arg(QDir::toNativeSeparators(m_pFile->absoluteFilePath()), reason));
        return entries;
    }
    const QByteArray bytes = file.readAll();
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size()); // including NUL
    const QList<QStringView> lines = QStringView(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QStringView line : lines) {
        const QStringView entry = line.left(line.indexOf(QLatin1Char('#')));
        if (!entry.trimmed().isEmpty()) {
            entries.append(entry.toString());
        }
    }
    return entries;
}

void common_MachineFileFinder::determineProcesses()
{
    const QStringList entries = parseMachinesFile();
    qint64 processes = entries.isEmpty() ? -1 : 0;
    for (const QString& entry : entries) {
        processes += processesOf(entry);
    }
    // Users type the counts: their sum may not fit into an integer.
    m_processes = int(qBound(qint64(std::numeric_limits<int>::min()), processes,
                             qint64(std::numeric_limits<int>::max())));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the exported signature is kept
bool common_MachineFileFinder::checkEnv(QString variableName)
{
    const bool isSet = !expandedVariable(variableName.toLatin1().constData()).isEmpty();
    if (!isSet) {
        common_showError(QStringLiteral("No such environment variable"),
                         QStringLiteral("Please set the environment variable %1 before proceeding.")
                             .arg(variableName));
    }
    return isSet;
}
