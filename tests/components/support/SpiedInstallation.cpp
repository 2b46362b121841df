// SPDX-License-Identifier: MIT
#include "SpiedInstallation.h"

#include <QDir>
#include <QFileInfo>

SpiedInstallation::SpiedInstallation(const QString& component, const QByteArray& script)
{
    const QDir bin(m_folder.filePath(QStringLiteral("bin")));
    bin.mkpath(QStringLiteral("."));
    m_program = bin.filePath(QFileInfo(component).fileName());
    QFile::copy(component, m_program);
    const QString path =
        writeFile(bin.path(), QStringLiteral("runkest"),
                  "#!/bin/sh\n(IFS='|'; echo \"$*\") >> '" + calls().toUtf8() + "'\nRUNKEST='" +
                      runkestProgram().toUtf8() + "'\n" + script + '\n');
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QStringList SpiedInstallation::calledWith() const
{
    return QString::fromUtf8(readFile(calls())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
