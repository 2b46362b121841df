// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <QSettings>

#include <memory>

/// What tests of runs in the terminal share: kestdesk with an installation whose components are
/// fake ones. Nothing of the runs may be left after a function.
class BatchTest : public QObject
{
protected:
    std::unique_ptr<Desk> m_desk;

    void setUp()
    {
        m_desk = std::make_unique<Desk>();
        for (const char* const name : {"runkest", "prekest", "optkest", "amrkest"}) {
            QVERIFY(Processes::install(text(FAKE_COMPONENT),
                                       m_desk->path(text("home/bin/") + text(name))));
        }
    }

    void tearDown() const
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), 5000);
        QCOMPARE(temporaryFiles().join(QLatin1Char(' ')), QString());
    }

    QString model(const char* name, const QByteArray& behaviour) const
    {
        writeFile(m_desk->path(text("models/") + text(name)), behaviour);
        return m_desk->path(text("models/") + text(name));
    }

    void writeMachines(const char* file = "user/machines.kest") const
    {
        writeFile(m_desk->path(file), "localhost:2\n");
    }

    /// "NAME=value" with the value as the settings file has it.
    void setOptions(const QStringList& assignments) const
    {
        QSettings settings(m_desk->path("user/kest.ini"), QSettings::IniFormat);
        for (const QString& assignment : assignments) {
            settings.setValue(text("options/") + assignment.section(QLatin1Char('='), 0, 0),
                              assignment.section(QLatin1Char('='), 1));
        }
    }

    static QStringList words(const QByteArray& line)
    {
        return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

    static QStringList batch(const QByteArray& line)
    {
        return QStringList(text("--non-interactive")) + words(line);
    }

    QStringList seenLines(const char* model) const
    {
        return QString::fromUtf8(
                   contentOf(m_desk->path(text("models/") + text(model) + text(".seen"))))
            .split(QLatin1Char('\n'));
    }

    /// The arguments of the last run on the model.
    QStringList seenArguments(const char* model) const
    {
        const QStringList lines = seenLines(model);
        return lines.mid(0, lines.indexOf(text("--")));
    }

    QStringList temporaryFiles() const
    {
        QStringList result;
        for (const char* const name : {"user", "home/shared/mpi", "models", "settings/kest"}) {
            result += QDir(m_desk->path(name))
                          .entryList({text("gui_tmp_machfile*"), text(".gui_tmp_machfile*")},
                                     QDir::AllEntries | QDir::Hidden);
        }
        return result;
    }

    void waitUntilUp(QProcess& process) const
    {
        QByteArray output;
        while (!output.contains("up\n")) {
            QVERIFY2(process.waitForReadyRead(30000), output.constData());
            output += process.readAllStandardOutput();
        }
    }
};
