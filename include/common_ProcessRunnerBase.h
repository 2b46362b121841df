// SPDX-License-Identifier: MIT
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

/// Runs one program as a child process and notifies its observers of the start, of each message and
/// of the end.
///
/// A run is: set up, run(), started or failed to start, messages, exit code, end. Then the runner
/// may be set up and run again. Everything happens on the thread that made the runner, through its
/// event loop. The setters assert that no child is running.
///
/// Standard output and standard error are read line by line; common_ProcessRunner turns the lines
/// into messages. Text behind the last line end is not delivered, also at the child's end: a
/// program that ends without a line end loses its last line. Lines are decoded as UTF-8; a
/// line of more than 1023 bytes is delivered in pieces of that size, each decoded by itself. Bytes
/// that are not UTF-8, and a character that is cut between two pieces, become Unicode replacement
/// characters; a byte order mark at the beginning of a piece is dropped.
///
/// Hold a runner by common_ActivePtr: then a callback may release it. Keep it until the child has
/// ended, because the destructor kills a running child; see there. A runner needs no services. In a
/// callback, observers may start and stop observing, and an observer may destroy itself, but not
/// one whose turn is to come.
///
/// A child's standard input is empty.
///
/// Only the child itself is monitored. Processes that it starts survive stopProcess() unless the
/// child ends them, and their output after the child's end is lost.
///
/// When the environment variable DUMP_KERNEL_STDOUT_STDERR names a directory, every delivered line
/// is also appended to a log file there. Its name is the first argument, or the executable when
/// there is none, and ".log". A log that cannot be written is not reported: the folders in that
/// name must exist in the directory, and on Windows there is no log for a name with a drive letter.
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

    /// Kills a running child, and waits until it has ended. It is asked to terminate before, but
    /// gets no time for it: to let a child end by itself, call stopProcess() and keep the runner
    /// until onProcessDone(). Notifies no observers and deletes no temporary files.
    ~common_ProcessRunnerBase() override;

    /// The child's environment is the application's with these "NAME=value" entries on top.
    ///
    /// Names and values are simplified: trimmed, with inner white space made single blanks. Blank
    /// entries and entries without exactly one "=" are ignored.
    void setProcessEnvironment(const QStringList& entries);

    /// Replaces all arguments. Asserts, like the other setters, that no child is running.
    void setArguments(const QStringList& arguments);
    /// Appends one argument.
    void addArgument(const QString& argument);
    /// Appends the arguments in their order.
    void addArguments(QStringList arguments);
    /// Removes all arguments.
    void clearArguments();

    /// The absolute path of the file, which must not be empty. A relative name is one in the
    /// current folder, and the PATH is not searched: QFileInfo("echo") means "./echo".
    void setExecutable(const QFileInfo& fileInfo);

    /// The program just as given; a bare name is searched for in the PATH.
    void setExecutable(const QString& executable);

    /// The folder that the child starts in; empty for that of the application.
    void setWorkingDirectory(const QString& directory);

    /// Files to delete at the end of a run, after the observers were notified. The list is kept for
    /// later runs. Of a link, the link itself is deleted; failures are ignored. On Windows, a file
    /// that another program has open stays.
    void setTemporaryFilenames(const QStringList& filenames);

    /// The arguments of the next run.
    QStringList getArguments() const;
    /// The program of the next run. A bare name appears as a file of the current folder.
    QFileInfo getExecutable() const;
    /// As it was set.
    QString getWorkingDirectory() const;

    /// Whether a child is running or starting.
    bool isRunning() const;

    /// The names of the files to delete, as they were set.
    QStringList getTemporaryFilenames() const;

    /// The exit code of the last child that ended. After crashExit() on Unix, the number of the
    /// signal that ended it. After a failed start it means nothing: usually 0 or 255.
    int exitCode() const;

    /// Whether the last child ended by itself with exit code 0.
    bool normalExit() const;

    /// Whether the last child that ended was ended by a signal, or on Windows by an exception.
    /// There, std::abort() is an end by itself with exit code 3.
    bool crashExit() const;

    /// Whether stopProcess() was called during the current run, or else during the last one.
    bool isStopRequested() const;

    /// Starts the child, waits until it has started, and notifies the observers. Returns false when
    /// it cannot be started, after notifying the observers, and when a child is running already,
    /// which is only logged as a warning.
    bool run();

    /// As run(), then waits without limit until the child has ended. False also when that wait
    /// fails.
    bool runAndWaitForFinish();

    /// Asks the child to terminate, and returns at once. A child may ignore the request; it has
    /// ended when onProcessDone() is called.
    ///
    /// On Windows the request reaches the child's windows only. For a console program, derive a
    /// class that creates the child with CREATE_NEW_PROCESS_GROUP (see process()), and send it
    /// Ctrl+Break in onStopRequested(), by AttachConsole() and GenerateConsoleCtrlEvent().
    void stopProcess();

    /// The number of runners that exist, running or not.
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
    /// Called with each line of standard output, including its line end, or with each piece of a
    /// line of more than 1023 bytes.
    virtual void onOutputRecieved(const QString& line) = 0;

    /// The same for standard error.
    virtual void onErrorRecieved(const QString& line) = 0;

    /// The running child is being asked to terminate, for the first time in its run: the place to
    /// ask it in another way, too. Does nothing here.
    virtual void onStopRequested();

    void onReadPipe() override;
    void onReadErrorPipe() override;
    void onProcessDone() override;

    /// The child's process, to set what has no operation here, as the arguments of its creation.
    /// Its signals, channels, program and environment are the runner's.
    QProcess& process();

    /// Detaches the application from its console; does nothing on Unix.
    void hideConsole();

    /// Opens the log, once per runner, if logging is on.
    void logProcessOutput();

    /// Appends the text to the log, if logging is on.
    void logToFile(const QString& text);

    /// Calls onProcessStarted() of every observer.
    void notifyProcessStarted();
    /// Calls onExitCodeChanged(), then onFailedProcessStarted(), of every observer.
    void notifyFailedProcessStarted();
    /// Calls onProcessMessageReceived() of every observer.
    void notifyProcessMessageReceived(const common_IProcessMessage& message);
    /// Calls onExitCodeChanged(), then onProcessDone(), of every observer.
    void notifyProcessDone();

    /// The number of runners; see getProcessCount().
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
    int m_deliveries = 0;         ///< calls in progress that may call observers
    int m_deliveryReferences = 0; ///< references that those calls hold on this object
};
