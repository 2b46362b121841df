// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <TerminalRun.h>

#include <QThread>

#include <memory>

/// "kestdesk machines" on a desk of its own, with a program in place of ssh and an editor. Tests
/// derive from it.
class MachinesStage
{
protected:
    /// For init(): a new desk.
    void setUp()
    {
        m_desk = std::make_unique<Desk>();
        QVERIFY(QDir().mkpath(m_desk->path("ssh")));
        QVERIFY(QFile::link(text(FAKE_SSH), m_desk->path("fake ssh")));
        m_desk->set("KEST_SSH", m_desk->path("fake ssh"));
        m_desk->set("KEST_FAKE_SSH", m_desk->path("ssh"));
        m_desk->set("TERM", text("xterm"));
        m_desk->unset("NO_COLOR");
    }

    /// For cleanup(): nothing that was started is left.
    void expectNoProcesses() const
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->processes(), QStringList(), 5000);
    }

    Desk::Result machines(const QByteArray& words, const QByteArray& input = {}) const
    {
        return m_desk->run(QStringList(text("machines")) +
                               QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts),
                           input);
    }

    void writeMachines(const QByteArray& content) const
    {
        writeFile(m_desk->path("user/machines.kest"), content);
    }

    QByteArray machinesFile() const { return contentOf(m_desk->path("user/machines.kest")); }

    static QStringList lines(const QString& output)
    {
        return output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    static QByteArray localLine()
    {
        return "localhost:" + QByteArray::number(qMax(QThread::idealThreadCount(), 1));
    }

    /// What the fake ssh does for the host.
    void host(const QByteArray& name, const QByteArray& behaviour) const
    {
        writeFile(m_desk->path(text("ssh/") + QString::fromUtf8(name)), behaviour);
    }

    /// A script that can be run.
    void writeScript(const QString& program, const QByteArray& script) const
    {
        writeFile(program, "#!/bin/sh\n" + script);
        QVERIFY(
            QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    /// An editor that runs this script with the file to edit as "$1", or behind what stands in
    /// VISUAL otherwise.
    void setEditor(const QByteArray& script) const
    {
        const QString program = m_desk->path("editor");
        writeScript(program, script);
        m_desk->set("VISUAL", QLatin1Char('"') + program + QLatin1Char('"'));
    }

    /// The copies that edit left.
    QStringList copies() const
    {
        return QDir(m_desk->path("user")).entryList({text("machines-edited-*")}, QDir::Files);
    }

    /// Runs kestdesk on a terminal, types the answers, and returns all that it writes there.
    Desk::Result onTerminal(const QStringList& arguments, const QByteArray& answers) const
    {
        const TerminalRun run = TerminalRun::of(text(KESTDESK), arguments,
                                                m_desk->environment().toStringList(), answers);
        Desk::Result result;
        result.exitCode = run.exitCode;
        result.output = QString::fromUtf8(run.output);
        return result;
    }

    std::unique_ptr<Desk> m_desk;
};
