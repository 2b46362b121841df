// SPDX-License-Identifier: MIT
#pragma once

#include <BoxReader.h>
#include <RecordingObserver.h>
#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>
#include <common_RunWrapper.h>

#include <QtTest>

#include <memory>

using Wrapper = common_RunWrapper;

using Options = QFlags<Wrapper::RunOption>;

inline const char* const machines = "node1:4\nnode2\n# spare:8\n";

enum SetUp { Prekest, Kest, Optkest, Amrkest };

inline bool setUp(Wrapper& wrapper, SetUp which, Wrapper::Runner& runner, const QFileInfo& model,
                  Options options)
{
    switch (which) {
    case Prekest:
        return wrapper.setupPrekestProcess(runner, model, options);
    case Kest:
        return wrapper.setupKestProcess(runner, model, options);
    case Optkest:
        return wrapper.setupOptkestProcess(runner, model, options);
    default:
        return wrapper.setupAmrkestProcess(runner, model, options);
    }
}

/// A user with an installation and a model, and a runner that is to be set up. The components of
/// the installation are kest_test_child, and the model is what that is to do.
class Site
{
public:
    Site()
        : user(folders.path() + QStringLiteral("/home"))
        , installation(folders.path() + QStringLiteral("/kest"))
        , model(folders.path() + QStringLiteral("/models/model.commands"))
        , m_userHome("KEST_USER_HOME", user)
        , m_installationHome("KEST_HOME", installation)
    {
        QDir().mkpath(user);
        QDir().mkpath(installation + QStringLiteral("/bin"));
        QDir().mkpath(installation + QStringLiteral("/shared/mpi"));
        QDir().mkpath(model.path());
        for (const char* component : {"prekest", "runkest", "optkest", "amrkest"}) {
#ifdef Q_OS_WIN
            QFile::copy(QStringLiteral(KEST_TEST_CHILD),
                        program(component) + QStringLiteral(".exe"));
#else
            QFile::link(QStringLiteral(KEST_TEST_CHILD), program(component));
#endif
        }
        SettingsFolders::write(folders.defaultFile(), "");
        SettingsFolders::write(model.filePath(), "directory\nvariable\nKEST_MPISTATISTICS\n"
                                                 "variable\nMINE\nvariable\nKEST_TEST_PASSED\n");
        settings = std::make_unique<common_CommonSettingsSet>(folders.info.userSettings,
                                                              QStringLiteral("Kest"));
        wrapper = std::make_unique<Wrapper>(settings.get());
        renewRunner();
    }

    void renewRunner()
    {
        runner = std::make_unique<Wrapper::Runner>();
    }

    bool writeOptions(const QByteArray& lines) const
    {
        return SettingsFolders::write(folders.userFile(), "[options]\n" + lines);
    }

    bool writeUsersMachines() const
    {
        return SettingsFolders::write(userFile(), machines);
    }
    bool writeInstallationsMachines() const
    {
        return SettingsFolders::write(installation + QStringLiteral("/shared/mpi/machines.kest"),
                                      machines);
    }

    QString userFile() const
    {
        return user + QStringLiteral("/machines.kest");
    }
    QString program(const char* component) const
    {
        return installation + QStringLiteral("/bin/") + QLatin1String(component);
    }

    bool setUpFor(SetUp which, Options options) const
    {
        return setUp(*wrapper, which, *runner, model, options);
    }

    /// Copies of the machines file in the user's folder.
    QStringList copies() const
    {
        QStringList paths;
        const QStringList names =
            QDir(user).entryList({QStringLiteral("gui_tmp_*")}, QDir::Files | QDir::Hidden);
        for (const QString& name : names) {
            paths.append(user + QLatin1Char('/') + name);
        }
        return paths;
    }

    QStringList arguments() const
    {
        return runner->getArguments();
    }

    SettingsFolders folders;
    QString user;
    QString installation;
    QFileInfo model;

private:
    Variable m_userHome;
    Variable m_installationHome;

public:
    std::unique_ptr<common_CommonSettingsSet> settings;
    std::unique_ptr<Wrapper> wrapper;
    std::unique_ptr<Wrapper::Runner> runner;
};

inline QStringList words(const QString& text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

inline QStringList words(const char* text)
{
    return words(QString::fromUtf8(text));
}

/// Reads the boxes that a run wrapper shows.
class RunWrapperStage
{
protected:
    void offerServices()
    {
        m_reader = std::make_unique<BoxReader>();
        m_service = std::make_unique<FakeApplication>(false);
    }

    struct Error
    {
        QString title;
        QString text;
    };

    /// What the child writes that the runner has been set up for.
    static QStringList wordsOfRun(const Site& site)
    {
        const RecordingObserver observer(site.runner.get());
        site.runner->runAndWaitForFinish();
        QStringList printed;
        for (const QStringList& texts : observer.texts) {
            printed += texts;
        }
        return words(printed.join(QLatin1Char(' ')).simplified());
    }

    static Error noHost()
    {
        return {QStringLiteral("No remote host argument specified"),
                QStringLiteral("Unable to do remote launching since the remote host has not been "
                               "provided.")};
    }

    static void verifyError(const QVector<BoxReader::Box>& boxes, const QVector<Error>& errors)
    {
        QCOMPARE(boxes.size(), errors.size());
        for (int i = 0; i < boxes.size(); ++i) {
            QCOMPARE(boxes[i].title, errors[i].title);
            QCOMPARE(boxes[i].text, errors[i].text);
            QCOMPARE(boxes[i].details, QString());
            QCOMPARE(boxes[i].icon, QMessageBox::Critical);
            QVERIFY(!boxes[i].parent);
        }
    }

    std::unique_ptr<BoxReader> m_reader;
    std::unique_ptr<FakeApplication> m_service;
};
