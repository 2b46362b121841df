#pragma once

#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <common_IProcessRunnerMediatorObserver.h>
#include <common_IProcessRunnerObserver.h>
#include <common_ObservableVia.h>
#include <kest_common_export.h>

#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <QVector>

#include <memory>

class common_IProcessMessage;
class common_LineBuffer;
class common_ProcessRunnerMediator;
class QFile;
class QProcess;

/// Runs one program as a child process and tells its observers what becomes of it.
///
/// What the child prints is read line by line on either channel; common_ProcessRunner turns the
/// lines into messages. Only whole lines are told: what stands behind the last line end when the
/// child ends is not. Lines are taken for UTF-8; a line of more than 1023 bytes comes in pieces of
/// that size, each decoded by itself. Bytes that are not UTF-8 become Unicode's replacement
/// character, and so do those of a character that is cut between two pieces; a byte order mark at
/// the beginning of a piece is dropped. A run goes: set up, run(), started or failed to start,
/// messages, exit code and end. After that the runner may be set up and run again. Everything
/// happens on the thread that made the runner, through its event loop; the setters assert that no
/// child is running.
///
/// Hold a runner by common_ActivePtr: then a callback may let go of it. An observer may stop
/// observing in a callback, but must not make another one stop whose turn is still to come.
///
/// A child has no standard input: what it reads there is at its end from the start.
///
/// Only the child itself is followed. Processes that it starts survive stopProcess() unless the
/// child ends them, and what they print after the child has ended is lost.
///
/// With the environment variable DUMP_KERNEL_STDOUT_STDERR naming a directory, every line that is
/// told is also appended to a log file there, as it was decoded, named after the first argument, or
/// after the executable where there is none, with ".log" added. A log that cannot be written is not
/// reported.
class KEST_COMMON_EXPORT common_ProcessRunnerBase
    : public common_ObservableVia<common_IProcessRunnerObserver>,
      public common_IProcessRunnerMediatorObserver
{
public:
    common_ProcessRunnerBase();

    /// Runners are not copied: asserts, always. The copy must not be used.
    common_ProcessRunnerBase(const common_ProcessRunnerBase& other);

    /// Runners are not copied: asserts, always; throws std::exception should that return.
    common_ProcessRunnerBase& operator=(const common_ProcessRunnerBase& other);

    /// Asks a running child to terminate and waits as QProcess does on its own destruction. Deletes
    /// no temporary files and tells nobody.
    ~common_ProcessRunnerBase() override;

    /// The child's environment is the application's with these "NAME=value" entries on top.
    ///
    /// Names and values are simplified: trimmed, with inner white space made single blanks. Blank
    /// entries and entries without exactly one "=" are ignored.
    void setProcessEnvironment(const QStringList& entries);

    void setArguments(const QStringList& arguments);
    void addArgument(const QString& argument);
    void addArguments(QStringList arguments);
    void clearArguments();

    /// The absolute path of the file, which must not be empty.
    void setExecutable(const QFileInfo& fileInfo);

    /// The program just as given; a bare name is searched for in the PATH.
    void setExecutable(const QString& executable);

    void setWorkingDirectory(const QString& directory);

    /// Files to delete when the child has ended and the observers know. The list stays for later
    /// runs. A link is deleted, not what it points to; failures are ignored.
    void setTemporaryFilenames(const QStringList& filenames);

    QStringList getArguments() const;
    QFileInfo getExecutable() const;
    QString getWorkingDirectory() const;

    /// Whether there is a child; one that is still starting counts.
    bool isRunning() const;

    /// Names of the files to delete, as they were set.
    QStringList getTemporaryFilenames() const;

    /// The exit code of the last child that ended; on Unix the number of the signal that ended it,
    /// where crashExit() says so.
    int exitCode() const;

    /// Whether the last child ended by itself with exit code 0.
    bool normalExit() const;

    /// Whether the last child that ended did not end by itself: a signal ended it, or on Windows an
    /// exception.
    bool crashExit() const;

    /// Whether stopProcess() was called during the run, or the last run when none is going on.
    bool isStopRequested() const;

    /// Starts the child and waits until it has started, which the observers are told. False when
    /// it cannot be started, which they are told too, and when a child is running already, of
    /// which only Qt's log hears.
    bool run();

    /// As run(), then waits without limit until the child has ended. False also when that wait
    /// fails.
    bool runAndWaitForFinish();

    /// Asks the child to terminate; neither waits nor insists. A child may ignore it: its end is
    /// only certain when onProcessDone() tells it.
    void stopProcess();

    /// How many runners there are, running or not.
    static int getProcessCount();

    void reference() { m_refCount.increment(); }
    void dereference()
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0",
                         "include/common_ProcessRunnerBase.h", 43);
        m_refCount.decrement();
    }
    int getRefCount() const { return m_refCount.value(); }

protected:
    /// A line of standard output, line end included, or a piece of 1023 bytes of a longer one, or
    /// the rest of that.
    virtual void onOutputRecieved(const QString& line) = 0;

    /// The same of standard error.
    virtual void onErrorRecieved(const QString& line) = 0;

    /// The running child is being asked to terminate, for the first time in its run. Does nothing
    /// here.
    virtual void onStopRequested();

    void onReadPipe() override;
    void onReadErrorPipe() override;
    void onProcessDone() override;

    /// Lets go of the application's console where the platform has such a thing.
    void hideConsole();

    /// Opens the log, once per runner, if logging is on.
    void logProcessOutput();

    /// Appends the text to the log, if logging is on.
    void logToFile(const QString& text);

    void notifyProcessStarted();
    void notifyFailedProcessStarted();
    void notifyProcessMessageReceived(const common_IProcessMessage& message);
    void notifyProcessDone();

    static int s_processCount;

private:
    class Delivery;

    void assertNotRunning(int line) const;
    bool startProcess();
    void readLines(common_LineBuffer& lines, int channel);
    void removeTemporaryFiles(const QVector<QFileInfo>& filesOfRun) const;
    bool isReleased() const;

    template <typename Call>
    void callObservers(Call call);

    common_AutoCounter m_refCount;
    QString m_executable;
    QVector<QFileInfo> m_temporaryFiles;
    QStringList m_arguments;
    std::unique_ptr<QProcess> m_pProcess;
    std::unique_ptr<QFile> m_pLogFile;
    QTextStream m_logStream;
    QString m_logDirectory;
    bool m_logEnabled = false;
    std::unique_ptr<common_ProcessRunnerMediator> m_pMediator;

    std::unique_ptr<common_LineBuffer> m_outputLines;
    std::unique_ptr<common_LineBuffer> m_errorLines;
    bool m_stopRequested = false;
    int m_deliveries = 0;         // calls in progress that may call observers
    int m_deliveryReferences = 0; ///< references that those calls hold on this object
};
