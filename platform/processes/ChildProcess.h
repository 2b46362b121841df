#pragma once

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

/// A program that runs in a process group of its own, so that it can be ended together with all
/// that it starts, and that is killed when this program ends, at whatever moment and however that
/// happens.
///
/// One object starts one program, from a thread that lives as long as the program does, such as the
/// main one. In a slot of its own signals it may be deleted by deleteLater() only.
class ChildProcess : public QObject
{
    Q_OBJECT

public:
    enum class Input {
        None,   ///< at its end from the start
        Written ///< what write() gives
    };
    enum class Errors {
        Read,       ///< reported by errorsRead()
        WithOutput, ///< reported by outputRead(), in order with the output
        Inherited   ///< go where this program's own go
    };
    enum class Terminal {
        Inherited,
        None ///< the program cannot ask anything there
    };

    explicit ChildProcess(QObject* parent = nullptr);

    /// Kills the group of a process that still runs, and waits for its end.
    ~ChildProcess() override;

    // All before the start.
    void setWorkingDirectory(const QString& folder) { m_setup.folder = folder; }
    void setInput(Input input) { m_setup.input = input; }
    void setErrors(Errors errors) { m_setup.errors = errors; }
    void setTerminal(Terminal terminal) { m_setup.terminal = terminal; }

    /// The scheduling priority, as "nice" counts it; without effect on other systems than Unix, and
    /// where it is not permitted.
    void setNiceValue(int value) { m_setup.niceValue = value; }

    /// The program is not killed with this one: it notices by itself.
    void setEndsByItself() { m_setup.endsByItself = true; }

    /// Starts the program, which is looked for in PATH where it is a bare name. False when it
    /// cannot be started: then startError() says why, and ended() comes as well.
    bool start(const QString& program, const QStringList& arguments);

    [[nodiscard]] QString program() const { return m_program; }
    [[nodiscard]] QString workingDirectory() const { return m_setup.folder; }

    /// Empty when the program was started.
    [[nodiscard]] QString startError() const { return m_startError; }

    [[nodiscard]] bool isRunning() const;

    /// Whether the program was started and has ended by itself, not by a signal.
    [[nodiscard]] bool hasExited() const { return m_hasExited; }

    /// Of a program that a signal has ended, the signal's number.
    [[nodiscard]] int exitCode() const { return m_exitCode; }

    /// Nothing is written that comes after the program's end or after closeInput().
    void write(const QByteArray& bytes);

    /// The program finds its input at its end behind what was written.
    void closeInput();

    /// Asks all processes of the group to end, or kills them, also those that have outlived the
    /// first one.
    void terminateGroup() const;
    void killGroup() const;

    /// Whether any process of the group is there.
    [[nodiscard]] bool isGroupAlive() const;

Q_SIGNALS:
    void outputRead(const QByteArray& bytes);
    void errorsRead(const QByteArray& bytes);

    /// The program has ended, or could not be started; all that it printed has been reported. Once,
    /// from the event loop.
    void ended();

private:
    struct Setup
    {
        QString folder;
        Input input = Input::None;
        Errors errors = Errors::Read;
        Terminal terminal = Terminal::Inherited;
        std::optional<int> niceValue;
        bool endsByItself = false;
    };
    class Process; ///< the platform's part

    Setup m_setup;
    QString m_program;
    QString m_startError;
    int m_exitCode = 0;
    bool m_hasExited = false;
    std::unique_ptr<Process> m_process;
};
