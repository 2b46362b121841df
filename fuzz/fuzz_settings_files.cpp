// SPDX-License-Identifier: MIT
// A settings file of any content: it is read, written and read again, and then holds the same.

#include "Fuzzing.h"

#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QCoreApplication>
#include <QMap>
#include <QVariant>

namespace {

using Options = common_ComponentsLaunchOptions;
using Values = QMap<QString, QString>;

// A folder whose user file has a name of its own each time: Qt keeps what it read under a name.
class Folder
{
public:
    explicit Folder(const QByteArray& content)
    {
        require(SettingsFolders::write(m_folders.userFile(), content), "the file can be written");
    }

    QString directory() const { return m_folders.info.userSettings; }

    // What the file holds outside the groups that are rewritten.
    Values otherValues() const
    {
        Values result;
        const QSettings settings(m_folders.userFile(), QSettings::IniFormat);
        const QStringList keys = settings.allKeys();
        for (const QString& key : keys) {
            if (isAskable(key) && !isRewritten(key)) {
                result.insert(key, settings.value(key).toStringList().join(QLatin1Char('\n')));
            }
        }
        return result;
    }

private:
    // QSettings finds others in damaged files, and gives nobody their values.
    static bool isAskable(const QString& key)
    {
        return !key.isEmpty() && !key.startsWith(QLatin1Char('/')) &&
               !key.endsWith(QLatin1Char('/')) && !key.contains(QLatin1String("//"));
    }

    static bool isRewritten(const QString& key)
    {
        return key.startsWith(QLatin1String("options/")) ||
               key.startsWith(QLatin1String("geometry/")) ||
               key.startsWith(QLatin1String("recentFiles/"));
    }

    SettingsFolders m_folders;
};

// Neither is ever in the file.
bool isPersisted(const QString& name)
{
    return name != QLatin1String("Optkest.SpecifyNumberOfFarmProcesses") &&
           name != QLatin1String("Timekest.DeleteTempFiles");
}

Values valuesOf(const Options::Pointer& options)
{
    Values result;
    const QStringList names = common_PropertyFactory::names();
    for (const QString& name : names) {
        if (options->hasProperty(name) && isPersisted(name)) {
            result.insert(name, (*options)[name].castToQString());
        }
    }
    require(result.size() == 39, "all options that are kept have values");
    return result;
}

Values valuesOf(const common_geometry_settings& geometry)
{
    return {{QStringLiteral("x"), QString::number(geometry.x_pos())},
            {QStringLiteral("y"), QString::number(geometry.y_pos())},
            {QStringLiteral("width"), QString::number(geometry.width())},
            {QStringLiteral("height"), QString::number(geometry.height())},
            {QStringLiteral("maximised"), QString::number(int(geometry.isMaximised()))}};
}

void tryOptions()
{
    const Values read = valuesOf(Options::create(ReadOnlyAccess));
    {
        const Options::Pointer options = Options::create(ReadWriteAccess);
        require(!options.isNull(), "nobody else holds the lock");
        require(valuesOf(options) == read, "the values do not depend on the way of reading");
        options->writeSettings();
    }
    require(valuesOf(Options::create(ReadOnlyAccess)) == read, "options survive a writing");
    require(read[QStringLiteral("Optkest.NumberOfFarmProcesses")].toInt() >= 2,
            "a farm has two processes at least");
}

void tryWindowSettings(const QString& directory)
{
    common_CommonSettingsSet first(directory, QStringLiteral("Kest"));
    first.readSettings();
    const QStringList files = first.recentFiles()->recentFiles();
    require(files.size() <= first.recentFiles()->getMaxRecentFiles(), "recent files are limited");
    first.writeSettings();

    common_CommonSettingsSet second(directory, QStringLiteral("Kest"));
    second.readSettings();
    require(valuesOf(*second.geometry()) == valuesOf(*first.geometry()),
            "the geometry survives a writing");
    require(second.recentFiles()->recentFiles() == files, "recent files survive a writing");
    require(second.recentFiles()->getRecentSession() == first.recentFiles()->getRecentSession(),
            "the session flag survives a writing");
}

// Qt asks for as much memory as such a value says it needs, which ends the process.
bool mayAskForAnyMemory(const QByteArray& content)
{
    return content.contains("@Variant(") || content.contains("@DateTime(");
}

} // namespace

void fuzz(FuzzedInput input)
{
    needApplication<QCoreApplication>();
    const QByteArray content = input.rest();
    if (mayAskForAnyMemory(content)) {
        return;
    }
    const Folder folder(content);
    const Values others = folder.otherValues();
    tryOptions();
    tryWindowSettings(folder.directory());
    require(folder.otherValues() == others, "what belongs to others stays as it is");
}
