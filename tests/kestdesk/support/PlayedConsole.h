// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <BoxReader.h>
#include <PlayedProgram.h>

/// What opens a console, and writes down what it was given: on Windows the shell, which has a
/// window of its own, and elsewhere a terminal emulator.
class PlayedConsole
{
public:
    explicit PlayedConsole(const Desk& desk)
        : m_programs(desk.path("home/bin"))
        , m_folder(desk.path("path"))
#ifdef Q_OS_WIN
        , m_shell("COMSPEC", PlayedProgram::file(path()))
#else
        , m_search("PATH", m_folder + text(":/usr/bin:/bin"))
        , m_display("DISPLAY", text(":77"))
#endif
    {
        if (!QDir().mkpath(m_folder) || !PlayedProgram::install(path(), PlayedProgram::telling)) {
            qFatal("no console");
        }
    }

    /// Its folder, and its arguments in angle brackets.
    QStringList told() const
    {
        return PlayedProgram::toldBy(path());
    }

    /// The arguments that start the system's shell, which finds the components.
    QStringList expectedArguments() const
    {
#ifdef Q_OS_WIN
        return {text("</K>"),
                text("<set PATH=") + QDir::toNativeSeparators(m_programs) + text(";%PATH%>")};
#else
        return {text("<-e>"), text("</usr/bin/env>"),
                text("<PATH=") + m_programs + QLatin1Char(':') + m_folder + text(":/usr/bin:/bin>"),
                text("</bin/sh>")};
#endif
    }

private:
    QString path() const
    {
        return m_folder + text("/x-terminal-emulator");
    }

    QString m_programs;
    QString m_folder;
#ifdef Q_OS_WIN
    Variable m_shell;
#else
    Variable m_search;
    Variable m_display;
#endif
};
