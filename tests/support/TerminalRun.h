// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cerrno>
#include <cstdlib>

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs a program on a terminal of its own, as a person does. A test that uses it links "util".
struct TerminalRun
{
    int exitCode = -1; ///< also when the program did not end by itself
    QByteArray output; ///< all that came to the terminal, what was typed included

    /// The environment takes the place of the test's own; what is typed is there from the start.
    static TerminalRun of(const QString& program, const QStringList& arguments,
                          const QStringList& environment, const QByteArray& typed = {},
                          int columns = 80)
    {
        constexpr unsigned short lines = 24;
        winsize size = {lines, static_cast<unsigned short>(columns), 0, 0};
        Words words(QStringList(program) + arguments);
        Words variables(withoutRepetitions(environment));
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
        if (child == 0) {
            constexpr int noProgram = 127;
            execve(words.pointers.first(), words.pointers.data(), variables.pointers.data());
            _exit(noProgram);
        }
        TerminalRun result;
        if (child < 0) {
            return result;
        }
        const bool isTyped =
            write(terminal, typed.constData(), std::size_t(typed.size())) == ssize_t(typed.size());
        char buffer[4096];
        for (ssize_t count = read(terminal, buffer, sizeof buffer); count > 0;
             count = read(terminal, buffer, sizeof buffer)) {
            result.output.append(buffer, int(count));
        }
        int status = 0;
        pid_t ended = -1;
        do {
            ended = waitpid(child, &status, 0);
        } while (ended < 0 && errno == EINTR);
        close(terminal);
        if (isTyped && ended == child && WIFEXITED(status)) {
            result.exitCode = WEXITSTATUS(status);
        }
        return result;
    }

private:
    /// The last value of a variable counts.
    static QStringList withoutRepetitions(const QStringList& environment)
    {
        QProcessEnvironment result;
        for (const QString& variable : environment) {
            const int split = variable.indexOf(QLatin1Char('='));
            result.insert(variable.left(split), variable.mid(split + 1));
        }
        return result.toStringList();
    }

    /// As the system takes them.
    struct Words
    {
        explicit Words(const QStringList& texts)
        {
            for (const QString& text : texts) {
                storage.append(text.toUtf8());
            }
            for (QByteArray& word : storage) {
                pointers.append(word.data());
            }
            pointers.append(nullptr);
        }

        QVector<QByteArray> storage;
        QVector<char*> pointers;
    };
};
