// SPDX-License-Identifier: MIT
#pragma once

#include <Text.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <unistd.h>

inline const QByteArray header =
    QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Answer
{
    int exitCode = -1;
    QString output;
    QString errors;
};

/// postkest without a window, in a folder with two results.
class PostkestRun
{
protected:
    void setUp()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        write("first run.csv", header + "100,10,-50,5\n200,70,0,1.4\n300,90,60,2\n");
        write("second.csv", header + "150,20,-20,8\n250,80,20,1.5\n");
    }

    /// The program may write only so many bytes into a file, and is no superuser's if wanted.
    Answer run(const QStringList& arguments, qint64 mostBytes = 0, bool isOrdinaryUser = false)
    {
        QStringList command = {text("env"), text("--default-signal=XFSZ")}; // as at a shell
        if (mostBytes > 0) {
            command += {text("prlimit"), text("--fsize=") + QString::number(mostBytes)};
        }
        if (isOrdinaryUser && ::geteuid() == 0) {
            command += {text("setpriv"), text("--reuid=65534")};
        }
        command += text(POSTKEST);
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
        environment.insert(text("DISPLAY"), text(":9999")); // none is needed
        environment.insert(text("XDG_RUNTIME_DIR"), path("."));
        environment.insert(text("KEST_USER_HOME"), path("."));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder->path());
        process.start(command.first(), command.mid(1) + arguments);
        if (!process.waitForFinished(240000) || process.exitStatus() != QProcess::NormalExit) {
            return Answer();
        }
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    Answer batch(const QStringList& arguments)
    {
        return run(QStringList{text("--non-interactive")} + arguments);
    }

    QString path(const char* name) const { return m_folder->filePath(text(name)); }

    void write(const char* name, const QByteArray& content)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};
