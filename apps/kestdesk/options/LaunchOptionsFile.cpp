#include "LaunchOptionsFile.h"

#include <KEST_binfiles.h>
#include <common_IApplicationInfo.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace {

struct LockOwner
{
    qint64 process; ///< 0 when nobody holds the file, or it cannot be told
    QString program;
    QString host;
};

// Nothing that steers a terminal.
QString shown(const char* name)
{
    QString text = QString::fromUtf8(name);
    std::replace_if(
        text.begin(), text.end(), [](QChar each) { return !each.isPrint(); }, QLatin1Char('?'));
    return text;
}

LockOwner lockOwner()
{
    char host[256] = "";
    char program[256] = "";
    const qint64 process =
        KEST_binfiles_lock_owner_program(LaunchOptionsFile::name().toStdWString().c_str(), host,
                                         sizeof host, program, sizeof program);
    return {process, shown(program), shown(host)};
}

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
    // In one look: others make and remove the file at any moment.
    const QString lock = name() + QStringLiteral(".kestlock");
    std::error_code ignored;
    switch (std::filesystem::symlink_status(std::filesystem::path(lock.toStdU16String()), ignored)
                .type()) {
    case std::filesystem::file_type::none: // who may not look there is told so by the lock
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
    return lockOwner().process != 0;
}

QString LaunchOptionsFile::owner()
{
    const LockOwner owner = lockOwner();
    if (owner.process == 0) {
        return QStringLiteral("another process");
    }
    const QString process = QStringLiteral("process %1 on %2").arg(owner.process).arg(owner.host);
    return owner.program.isEmpty() ? process
                                   : QStringLiteral("%1 as %2").arg(owner.program, process);
}
