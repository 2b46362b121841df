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

QString LaunchOptionsFile::owner()
{
    const auto readable = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    char host[256] = "";
    const qint64 process =
        KEST_binfiles_lock_owner(readable->getFileName().toStdWString().c_str(), host, sizeof host);
    return QStringLiteral("process %1 on %2").arg(process).arg(QString::fromUtf8(host));
}
