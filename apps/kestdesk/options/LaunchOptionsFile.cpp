#include "LaunchOptionsFile.h"

#include <KEST_binfiles.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

bool isKept(const QString& name)
{
    return (common_PropertyFactory::getMetaData(name).flags() &
            common_PropertyMetaData::Transient) == 0;
}

struct LockOwner
{
    qint64 process; ///< 0 when nobody holds the file
    QString host;
};

LockOwner lockOwner()
{
    const auto readable = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    char host[256] = "";
    const qint64 process =
        KEST_binfiles_lock_owner(readable->getFileName().toStdWString().c_str(), host, sizeof host);
    return {process, QString::fromUtf8(host)};
}

} // namespace

QStringList LaunchOptionsFile::keptNames(const common_ComponentsLaunchOptions& options)
{
    const QStringList all = options.getProperties();
    QStringList result;
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(result), isKept);
    return result;
}

QString LaunchOptionsFile::value(const common_ComponentsLaunchOptions& options, const QString& name)
{
    return options[name].castToQString();
}

// Without a file the defaults would be read, and could be the same by chance.
QStringList LaunchOptionsFile::save(common_ComponentsLaunchOptions& options)
{
    options.writeSettings();
    const bool isThere = QFileInfo(options.getFileName()).isFile();
    const auto saved = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    QStringList lost = keptNames(options);
    lost.erase(std::remove_if(lost.begin(), lost.end(),
                              [&options, &saved, isThere](const QString& name) {
                                  return isThere && value(*saved, name) == value(options, name);
                              }),
               lost.end());
    return lost;
}

bool LaunchOptionsFile::isOwned()
{
    return lockOwner().process != 0;
}

QString LaunchOptionsFile::owner()
{
    const LockOwner owner = lockOwner();
    return QStringLiteral("process %1 on %2").arg(owner.process).arg(owner.host);
}
