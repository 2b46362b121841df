// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

/// A program that runs in its own process group, so that it can be ended together with all
/// processes that it starts. It is killed when this program ends, at any moment and in any way.
///
/// An object starts one program, from a thread that must exist as long as the program runs, such as
/// the main thread. A slot of its signals may delete it only by deleteLater().
class ChildProcess : public QObject
{
    Q_OBJECT

public:
    enum class Input {
        None,   ///< empty
        Written ///< the bytes of write()
    };
    enum class Errors {
        Read,       ///< reported by errorsRead()
        WithOutput, ///< reported by outputRead(), in order with the output
        Inherited   ///< this program's own error channel
    };
    enum class Terminal {
        Inherited,
        None ///< no terminal, so that the program cannot ask questions
    };

    explicit ChildProcess(QObject* parent = nullptr);

    /// Kills the group of a process that still runs, and waits for its end.
    ~ChildProcess() override;

    // To be called before the start.
    void setWorkingDirectory(const QString& folder) { m_setup.folder = folder; }
    void setInput(Input input) { m_setup.input = input; }
    void setErrors(Errors errors) { m_setup.errors = errors; }
    void setTerminal(Terminal terminal) { m_setup.terminal = terminal; }

    /// The scheduling priority as a nice value, on Windows as the nearest priority class; has no
    /// effect if it is not permitted.
    void setNiceValue(int value) { m_setup.niceValue = value; }

    /// The program is not killed when this one ends, because it notices the end itself.
    void setLeftRunningAtExit() { m_setup.isLeftRunningAtExit = true; }

    /// Starts the program; a bare name is looked up in PATH. On failure returns false, sets
    /// startError(), and emits ended(), too.
    bool start(const QString& program, const QStringList& arguments);

    [[nodiscard]] QString program() const { return m_program; }
    [[nodiscard]] QString workingDirectory() const { return m_setup.folder; }

    /// Why the program could not be started; empty on success.
    [[nodiscard]] QString startError() const { return m_startError; }

    [[nodiscard]] bool isRunning() const;

    /// Whether the program was started and has ended by itself, not by a signal.
    [[nodiscard]] bool hasExited() const { return m_hasExited; }

    /// The exit code, or the number of the signal that has ended the program.
    [[nodiscard]] int exitCode() const { return m_exitCode; }

    /// Writes to the program's input. Ignored after the end of the program and after closeInput().
    void write(const QByteArray& bytes);

    /// Ends the program's input after the bytes that were written.
    void closeInput();

    /// Ask all processes of the group to end, or kill them, including those that have outlived the
    /// first one.
    void terminateGroup() const;
    void killGroup() const;

    /// Whether any process of the group exists.
    [[nodiscard]] bool isGroupAlive() const;

Q_SIGNALS:
    void outputRead(const QByteArray& bytes);
    void errorsRead(const QByteArray& bytes);

    /// The program has ended, or could not be started; all its output has been reported. Emitted
    /// once, from the event loop.
    void ended();

private:
    struct Setup
    {
        QString folder;
        Input input = Input::None;
        Errors errors = Errors::Read;
        Terminal terminal = Terminal::Inherited;
        std::optional<int> niceValue;
        bool isLeftRunningAtExit = false;
    };
    class Process; ///< platform-specific part

    Setup m_setup;
    QString m_program;
    QString m_startError;
    int m_exitCode = 0;
    bool m_hasExited = false;
    std::unique_ptr<Process> m_process;
};
