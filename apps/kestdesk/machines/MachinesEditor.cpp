// SPDX-License-Identifier: MIT
#include "MachinesEditor.h"

#include "MachinesReport.h"
#include "Terminal.h"
#include "TerminalDevice.h"

#include <Clause.h>
#include <MachinesFile.h>
#include <StopSignals.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <algorithm>
#include <csignal>
#include <cstdio>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MachinesEditor)
};

constexpr int exitDone = 0;
constexpr int exitNotSaved = 1;
constexpr int exitImpossible = 2;

constexpr const char* fileTemplate =
    "# The machines for parallel runs, one a line:\n"
    "#\n"
    "#   host:count\n"
    "#\n"
    "# \"host\" is a host name or an address, \"count\" the number of "
    "processes that it takes;\n"
    "# without a count it is one. \"#\" begins a comment. Example, "
    "without the \"#\":\n"
    "#\n"
    "#   localhost:2\n"
    "#   node1.example.org:8\n";

// Used if the user has not set an editor.
constexpr const char* commonEditors[] = {"sensible-editor", "editor", "vi", "nano", "notepad"};

void reportError(const QString& line)
{
    Terminal(stderr).writeLine(QStringLiteral("kestdesk: ") + line, Terminal::Colour::Red);
}

// The editor's program and its arguments; empty if there is none.
QStringList editorCommand()
{
    for (const char* const variable : {"VISUAL", "EDITOR"}) {
        QStringList command = QProcess::splitCommand(qEnvironmentVariable(variable));
        if (!command.isEmpty()) {
            return command;
        }
    }
    for (const char* const name : commonEditors) {
        if (!QStandardPaths::findExecutable(QLatin1String(name)).isEmpty()) {
            return {QLatin1String(name)};
        }
    }
    return {};
}

/// Waits for an editor. Meanwhile Ctrl+C, which the editor gets from the terminal as well, has no
/// effect here; other requests to stop are passed on to the editor.
class EditorWait
{
public:
    /// To be made before the editor is started.
    explicit EditorWait(QProcess& editor) : m_editor(editor)
    {
        QObject::connect(&editor, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished),
                         &m_loop, &QEventLoop::quit);
        StopSignals::watch(&m_loop, [&editor](int number) {
            if (number != SIGINT) {
                editor.terminate();
            }
        });
    }

    /// Returns when the editor has ended.
    void wait()
    {
        if (m_editor.state() != QProcess::NotRunning) {
            m_loop.exec();
        }
    }

private:
    QProcess& m_editor;
    QEventLoop m_loop;
};

// The next line of input; nothing at its end.
std::optional<QString> readLine()
{
    QByteArray line;
    for (int character = std::getchar(); character != '\n'; character = std::getchar()) {
        if (character == EOF) {
            return std::nullopt;
        }
        line.append(static_cast<char>(character));
    }
    return QString::fromLocal8Bit(line).trimmed().toLower();
}

} // namespace

int MachinesEditor::exec()
{
    if (!readOriginal() || !makeCopy()) {
        return exitImpossible;
    }
    const int failure = editCopy();
    return failure == exitDone ? conclude() : failure;
}

bool MachinesEditor::readOriginal()
{
    if (!m_store.readError().isEmpty()) {
        reportError(Texts::tr("cannot read %1: %2").arg(m_store.fileName(), m_store.readError()));
        return false;
    }
    m_begun = m_store.origin().isEmpty() ? QByteArray(fileTemplate) : m_store.content();
    return true;
}

// Beside the file: the text is private to the user there, and is kept.
bool MachinesEditor::makeCopy()
{
    const QFileInfo file(m_store.fileName());
    QDir().mkpath(file.absolutePath());
    QTemporaryFile copy(file.absolutePath() + QStringLiteral("/machines-edited-XXXXXX.kest"));
    copy.setAutoRemove(false);
    if (!copy.open() || copy.write(m_begun) != m_begun.size() || !copy.flush()) {
        reportError(Texts::tr("cannot write in %1: %2")
                        .arg(file.absolutePath(), suite::clause(copy.errorString())));
        copy.remove();
        return false;
    }
    m_copyName = copy.fileName();
    return true;
}

// Returns exitDone, or the exit code of a failure, whose reason it prints.
int MachinesEditor::editCopy()
{
    const QStringList command = editorCommand();
    if (command.isEmpty()) {
        QFile::remove(m_copyName);
        reportError(Texts::tr("there is no editor; VISUAL or EDITOR names one"));
        return exitImpossible;
    }
    QProcess editor;
    editor.setProcessChannelMode(QProcess::ForwardedChannels);
    editor.setInputChannelMode(QProcess::ForwardedInputChannel);
    EditorWait wait(editor);
    editor.start(command.first(), command.mid(1) + QStringList(m_copyName));
    if (!editor.waitForStarted(-1)) {
        reportError(Texts::tr("cannot start the editor %1: %2")
                        .arg(command.first(), suite::clause(editor.errorString())));
        return MachinesFileStore::contentOf(m_copyName) == m_begun
                   ? (QFile::remove(m_copyName), exitImpossible)
                   : keepCopy(Texts::tr("nothing was saved"));
    }
    wait.wait();
    if (editor.exitStatus() != QProcess::NormalExit || editor.exitCode() != 0) {
        const QString reason = Texts::tr("the editor did not end well; nothing was saved");
        return MachinesFileStore::contentOf(m_copyName) == m_begun ? dropCopy(reason)
                                                                   : keepCopy(reason);
    }
    return exitDone;
}

int MachinesEditor::conclude()
{
    for (;;) {
        QString error;
        const std::optional<QByteArray> edited = MachinesFileStore::contentOf(m_copyName, &error);
        if (!edited) {
            return keepCopy(Texts::tr("cannot read what was edited: %1").arg(error));
        }
        if (*edited == m_begun) {
            QFile::remove(m_copyName);
            Terminal(stdout).writeLine(Texts::tr("Nothing was changed."));
            return exitDone;
        }
        const Answer answer = judge(*edited);
        if (answer == Answer::Save) {
            return save(*edited);
        }
        if (answer == Answer::Discard) {
            return dropCopy(Texts::tr("nothing was saved"));
        }
        if (answer == Answer::Keep) {
            return keepCopy(Texts::tr("a file with errors is not saved"));
        }
        const int failure = editCopy();
        if (failure != exitDone) {
            return failure;
        }
    }
}

// Prints the findings. A valid file is saved; the user decides about one with errors.
MachinesEditor::Answer MachinesEditor::judge(const QByteArray& edited) const
{
    const suite::MachinesFile file = suite::MachinesFile::parse(edited);
    Terminal terminal(stderr);
    MachinesReport::writeFindings(file, terminal);
    terminal.flush();
    if (file.isValid()) {
        return Answer::Save;
    }
    if (!TerminalDevice::isAnyTerminal(stdin)) {
        return Answer::Keep;
    }
    for (;;) {
        std::fputs(qUtf8Printable(Texts::tr("Edit again, save anyway, or discard? [e/s/d] ")),
                   stderr);
        const std::optional<QString> line = readLine();
        if (!line) {
            return Answer::Keep;
        }
        if (line->startsWith(QLatin1Char('e')) || line->isEmpty()) {
            return Answer::EditAgain;
        }
        if (line->startsWith(QLatin1Char('s'))) {
            return Answer::Save;
        }
        if (line->startsWith(QLatin1Char('d'))) {
            return Answer::Discard;
        }
    }
}

int MachinesEditor::save(const QByteArray& edited)
{
    if (m_store.hasChanged()) {
        return keepCopy(
            Texts::tr("%1 was changed meanwhile and is left as it is").arg(m_store.fileName()));
    }
    const QString error = m_store.save(edited);
    if (!error.isEmpty()) {
        return keepCopy(Texts::tr("cannot write %1: %2").arg(m_store.fileName(), error));
    }
    QFile::remove(m_copyName);
    Terminal(stdout).writeLine(Texts::tr("Saved %1.").arg(m_store.fileName()));
    return exitDone;
}

int MachinesEditor::keepCopy(const QString& reason) const
{
    reportError(Texts::tr("%1; what you edited is in %2").arg(reason, m_copyName));
    return exitNotSaved;
}

int MachinesEditor::dropCopy(const QString& reason) const
{
    QFile::remove(m_copyName);
    reportError(reason);
    return exitNotSaved;
}
