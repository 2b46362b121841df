#pragma once

#include <Text.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

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

// A program that may write only so many bytes into a file, or that is no superuser's.
class LimitedProcess : public QProcess
{
public:
    qint64 mostBytes = 0;
    bool isOrdinaryUser = false;

protected:
    void setupChildProcess() override
    {
#ifdef Q_OS_UNIX
        if (mostBytes > 0) {
            const rlimit tight = {static_cast<rlim_t>(mostBytes), static_cast<rlim_t>(mostBytes)};
            std::signal(SIGXFSZ, SIG_DFL); // as at a shell
            ::setrlimit(RLIMIT_FSIZE, &tight);
        }
        if (isOrdinaryUser && ::geteuid() == 0 && ::setuid(65534) != 0) {
            ::_exit(99);
        }
#endif
    }
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

    Answer run(const QStringList& arguments, qint64 mostBytes = 0, bool isOrdinaryUser = false)
    {
        LimitedProcess process;
        process.mostBytes = mostBytes;
        process.isOrdinaryUser = isOrdinaryUser;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
        environment.insert(text("DISPLAY"), text(":9999")); // none is needed
        environment.insert(text("XDG_RUNTIME_DIR"), path("."));
        environment.insert(text("KEST_USER_HOME"), path("."));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder->path());
        process.start(text(POSTKEST), arguments);
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
