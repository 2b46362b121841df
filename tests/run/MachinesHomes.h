// SPDX-License-Identifier: MIT
#pragma once

#include <BoxReader.h>

#include <common_MachineFileFinder.h>

#include <QDir>

using Finder = common_MachineFileFinder;

/// A user's and an installation's folder, to which the environment points.
class Homes
{
public:
    Homes()
        : user(m_folder.filePath(QStringLiteral("user")))
        , installation(m_folder.filePath(QStringLiteral("installation")))
        , m_userHome("KEST_USER_HOME", user)
        , m_installationHome("KEST_HOME", installation)
    {
        QDir().mkpath(user);
        QDir().mkpath(installation + QStringLiteral("/shared/mpi"));
    }

    QString path() const { return m_folder.path(); }
    QString userFile() const { return user + QStringLiteral("/machines.kest"); }
    QString installationFile() const
    {
        return installation + QStringLiteral("/shared/mpi/machines.kest");
    }

private:
    QTemporaryDir m_folder;

public:
    QString user;
    QString installation;

private:
    Variable m_userHome;
    Variable m_installationHome;
};
