#pragma once

#include "OptkestRun.h"

#include <Text.h>

// Where a search without any rounding would end, by the engine itself.
inline constexpr double resonantValue = 0.47412;

inline int evaluationsOf(const SuiteResult& result)
{
    return noticeOf(result, 213).section(QLatin1Char(' '), 3, 3).toInt();
}

inline int roundsOf(const SuiteResult& result)
{
    return noticeOf(result, 213).section(QLatin1Char(' '), 5, 5).toInt();
}

// A folder with optkest and a runkest that writes down how it is called before it works.
class SpiedInstallation
{
public:
    explicit SpiedInstallation(const QByteArray& work)
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("bin"));
        QFile::copy(optkestProgram(), program());
        const QByteArray script = "#!/bin/sh\necho \"$*\" >> '" + calls().toUtf8() + "'\n" + work +
                                  "\nexec '" + runkestProgram().toUtf8() + "' \"$1\"\n";
        const QString path =
            writeFile(m_folder.path() + QStringLiteral("/bin"), QStringLiteral("runkest"), script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString program() const { return m_folder.filePath(QStringLiteral("bin/optkest")); }
    QStringList calledWith() const
    {
        return QString::fromUtf8(readFile(calls())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QString calls() const { return m_folder.filePath(QStringLiteral("calls")); }

    QTemporaryDir m_folder;
};
