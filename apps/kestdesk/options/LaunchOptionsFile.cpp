// SPDX-License-Identifier: MIT
#include "LaunchOptionsFile.h"

#include <common_IApplicationInfo.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>
#include <common_ServiceOf.h>
#include <common_SettingsLock.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace {

QString defaultsName()
{
    return QDir(GET_SERVICE(common_IApplicationInfo)->defaultSettingsDirectory())
        .filePath(QStringLiteral("default.ini"));
}

QString problemOf(const QString& fileName)
{
    const QString problem = common_settings::getFileProblem(fileName);
    return problem.isEmpty() ? problem
                             : QStringLiteral("%1 cannot be used: %2").arg(fileName, problem);
}

} // namespace

QString LaunchOptionsFile::name()
{
    return QDir(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory())
        .filePath(QStringLiteral("kest.ini"));
}

QString LaunchOptionsFile::problem()
{
    return QFileInfo::exists(name()) ? problemOf(name()) : defaultsProblem();
}

QString LaunchOptionsFile::defaultsProblem()
{
    return problemOf(defaultsName());
}

QString LaunchOptionsFile::lockProblem()
{
    // With one system call: others create and remove the file at any moment.
    const QString lock = name() + QStringLiteral(".kestlock");
    std::error_code ignored;
    switch (std::filesystem::symlink_status(std::filesystem::path(lock.toStdU16String()), ignored)
                .type()) {
    case std::filesystem::file_type::none: // without permission, the lock reports it
    case std::filesystem::file_type::not_found:
    case std::filesystem::file_type::regular:
        return QString();
    default:
        return QStringLiteral("%1 is no lock file and must be removed").arg(lock);
    }
}

bool LaunchOptionsFile::isKept(const common_PropertyMetaData& metaData)
{
    return (metaData.flags() & common_PropertyMetaData::Transient) == 0;
}

QStringList LaunchOptionsFile::keptNames(const common_ComponentsLaunchOptions& options)
{
    const QStringList all = options.getProperties();
    QStringList result;
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(result), [](const QString& name) {
        return isKept(common_PropertyFactory::getMetaData(name));
    });
    return result;
}

QString LaunchOptionsFile::value(const common_ComponentsLaunchOptions& options, const QString& name)
{
    return options[name].castToQString();
}

// Without a file the defaults would be read, and could be the same by chance.
LaunchOptionsFile::Saving LaunchOptionsFile::save(common_ComponentsLaunchOptions& options)
{
    const QString reason = options.tryWriteSettings();
    const bool isThere = QFileInfo(options.getFileName()).isFile();
    const auto saved = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    QStringList lost = keptNames(options);
    lost.erase(std::remove_if(lost.begin(), lost.end(),
                              [&options, &saved, isThere](const QString& name) {
                                  return isThere && value(*saved, name) == value(options, name);
                              }),
               lost.end());
    return {lost, reason};
}

bool LaunchOptionsFile::isOwned()
{
    return !common_SettingsLock(name()).owner().isEmpty();
}

QString LaunchOptionsFile::owner()
{
    const QString owner = common_SettingsLock(name()).owner();
    return owner.isEmpty() ? QStringLiteral("another process") : owner;
}
