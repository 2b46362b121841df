// SPDX-License-Identifier: MIT
#pragma once

#include <FakeServices.h>
#include <UnixLines.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

/// A user's and an installation's settings folder, both empty, and the services that name them.
class SettingsFolders
{
public:
    SettingsFolders() : info(m_folder.path())
    {
        info.userSettings = m_folder.filePath(QStringLiteral("user"));
        info.defaultSettings = m_folder.filePath(QStringLiteral("installation"));
        QDir().mkdir(info.userSettings);
        QDir().mkdir(info.defaultSettings);
    }

    QString path() const { return m_folder.path(); }
    QString userFile() const { return info.userSettings + QStringLiteral("/kest.ini"); }
    QString defaultFile() const { return info.defaultSettings + QStringLiteral("/default.ini"); }

    QStringList userFolderContent() const
    {
        return QDir(info.userSettings).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    static bool write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? unixLines(file.readAll())
                                              : QByteArrayLiteral("unreadable");
    }

private:
    QTemporaryDir m_folder;

public:
    FakeApplicationInfo info;
    FakeSession session;
};

/// This test program again, as a child that does a deed of the test's own in a given folder, which
/// the parent removes.
namespace Child {

inline const char* const deedVariable = "KEST_TEST_DEED";
inline const char* const folderVariable = "KEST_TEST_FOLDER";

/// What the child is to do; empty in the test itself.
inline QString deed()
{
    return qEnvironmentVariable(deedVariable);
}

inline QString folder()
{
    return qEnvironmentVariable(folderVariable);
}

inline void start(QProcess& process, const QString& deed, const QString& folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(deedVariable), deed);
    environment.insert(QLatin1String(folderVariable), folder);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder); // else Qt complains
    environment.insert(QStringLiteral("ASAN_OPTIONS"),
                       QStringLiteral("detect_leaks=0:verify_asan_link_order=0"));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), QStringList());
}

/// What the child writes to standard error until it ends; says so when it does not crash.
inline QString lastWords(const QString& deed, const QString& folder)
{
    QProcess process;
    start(process, deed, folder);
    if (!process.waitForFinished()) {
        return QStringLiteral("did not end");
    }
    return process.exitStatus() == QProcess::CrashExit
               ? QString::fromUtf8(unixLines(process.readAllStandardError()))
               : QStringLiteral("did not crash");
}

} // namespace Child
