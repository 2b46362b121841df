// SPDX-License-Identifier: MIT
#include <common_recent_file_settings.h>

#include <FileProbe.h>
#include <common_Assert.h>
#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* sourceFile = "src/settings/recent_file/common_recent_file_settings.cpp";

QString groupName()
{
    return QStringLiteral("recentFiles");
}

QString fileListKey()
{
    return QStringLiteral("fileList");
}

QString sessionKey()
{
    return QStringLiteral("recentSession");
}

QString nativePath(const QFileInfo& file)
{
    return QDir::toNativeSeparators(file.absoluteFilePath());
}

} // namespace

common_recent_file_settings::common_recent_file_settings(const QString& fileName)
    : common_settings(fileName, groupName(), QSettings::IniFormat)
{}

common_recent_file_settings::common_recent_file_settings(const common_recent_file_settings& other)
    : common_settings(other.getFileName(), groupName(), QSettings::IniFormat)
    , // NOLINT(*-init)
    m_recentFiles(other.m_recentFiles)
{}

common_recent_file_settings::~common_recent_file_settings() = default;

void common_recent_file_settings::addRecentFile(const QString& path)
{
    const QString native = QDir::toNativeSeparators(path);
    const QStringList similar = m_recentFiles.filter(native);
    if (!similar.isEmpty()) {
        m_recentFiles.removeOne(similar.first());
    }
    if (!m_recentFiles.contains(native)) {
        if (!m_recentFiles.isEmpty() && m_recentFiles.size() >= m_maxRecentFiles) {
            m_recentFiles.removeLast();
        }
        m_recentFiles.prepend(native);
    }
}

void common_recent_file_settings::removeNewestFile()
{
    COMMON_ASSERT_AT(!m_recentFiles.isEmpty(), "!m_recentFiles.isEmpty()", sourceFile, 79);
    m_recentFiles.removeFirst();
}

void common_recent_file_settings::copy(const common_recent_file_settings& other)
{
    m_recentFiles = other.m_recentFiles;
}

void common_recent_file_settings::restoreDefaults()
{
    m_recentFiles.clear();
    m_recentSession = false;
}

void common_recent_file_settings::doReadSettings(QSettings& settings)
{
    int accepted = 0;
    FileProbe probe;
    const QStringList stored = settings.value(fileListKey()).toStringList();
    for (const QString& path : stored) {
        if (accepted >= m_maxRecentFiles) {
            break; // before more files are looked for, perhaps on a slow network
        }
        // One that does not answer may do so tomorrow.
        const QFileInfo file(path);
        if (probe.ask(path) != FileProbe::Answer::Unreadable &&
            !m_recentFiles.contains(nativePath(file))) {
            m_recentFiles.append(nativePath(file));
            ++accepted;
        }
    }
    if (m_recentFiles.isEmpty()) {
        const QString initial = common_ServiceOf<common_IApplicationInfo>::getService(
                                    "common_IApplicationInfo", sourceFile, __LINE__)
                                    ->initialRecentFile();
        if (!initial.isEmpty() && probe.ask(initial) == FileProbe::Answer::Readable) {
            m_recentFiles.append(nativePath(QFileInfo(initial)));
        }
    }
    m_recentSession = settings.value(sessionKey(), true).toBool();
}

void common_recent_file_settings::doWriteSettings(QSettings& settings)
{
    settings.setValue(fileListKey(), m_recentFiles);
    settings.setValue(sessionKey(), m_recentSession);
}
