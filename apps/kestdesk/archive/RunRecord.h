#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// What the archive keeps of one run, except for its messages: how it was started, and once it has
/// ended, how that came about. A plain value.
struct RunRecord
{
    enum class State {
        Running,     ///< the program that follows the run has not written its end, and is alive
        Interrupted, ///< it has not written the end, and has ended itself: killed, or a power cut
        Valid,
        Fault,
        NotStarted,
        Stopped
    };

    /// A launch option, as text.
    struct Option
    {
        QString name;
        QString value;
        QString defaultValue; ///< of the installation

        bool isChanged() const { return value != defaultValue; }
    };

    /// A file that the component reported.
    struct File
    {
        QString path;     ///< absolute
        qint64 size = -1; ///< bytes; -1 when it was not there after the run
        QString checksum; ///< SHA-256 in hexadecimal; empty where it was not computed
        QString copy;     ///< name of the copy in the folder, of small tables; mostly empty
    };

    // Where the record is.
    int number = 0; ///< of the run in this archive, from 1 on
    QString folder; ///< of the record, absolute

    // How the run was started.
    QString face;  ///< "window" or "terminal"
    QString owner; ///< mark of the process that follows the run
    QString component;
    QString model;         ///< absolute path
    QString modelCopy;     ///< name of its copy in the folder; empty when there was nothing to copy
    QString modelChecksum; ///< SHA-256 in hexadecimal
    QString machinesCopy;  ///< name of the copy of the machines file; empty without one
    QStringList runOptions; ///< words of the command line, without hyphens: "parallel"
    QString program;
    QStringList arguments;
    QString workingDirectory;
    QStringList environment; ///< NAME=VALUE, in addition to that of the system
    QVector<Option> launchOptions;
    QString host;
    QString system;
    QString processor;
    QString user;
    QString suiteVersion;
    QString qtVersion;
    QString installation;
    int cores = 0;
    int segments = 0;    ///< of the model; 0 when it could not be read
    int frequencies = 0; ///< of its sweep; 0 when it could not be read
    int processes = 1;   ///< how many solve it at once
    int repeats = 0;     ///< number of the run that this one repeats; 0 when it repeats none
    QDateTime started;   ///< UTC

    // How it ended.
    State state = State::Running;
    QDateTime ended;      ///< UTC; of an interrupted run that of the last message
    qint64 duration = 0;  ///< milliseconds
    QString outcome;      ///< in a few words: "fault, SIGKILL"
    QString reason;       ///< a clause whose subject is the component; may be empty
    QString problem;      ///< why it could not be started, as a clause; may be empty
    QString stoppedBy;    ///< in words, as in "stopped by"; empty when it was not stopped from here
    int exitCode = 0;     ///< or the number of the signal
    bool isCrash = false; ///< whether the code is that of a signal
    int totalPercentage = 0;
    int errors = 0;
    int warnings = 0;
    int notices = 0;
    QStringList lastLines; ///< of the output
    QVector<File> files;
    int omittedLines = 0; ///< lines of output that the limit of a record left out
    QString gap;          ///< why the record is not complete, as a clause; empty when it is

    bool hasEnded() const { return state != State::Running; }

    /// The word for the state: "running", "interrupted", "valid", ...
    static QString word(State state);

    /// Absolute path of the copy of the model; empty without one.
    QString modelCopyPath() const;

    /// The options that differ from the installation's defaults.
    QVector<Option> changedOptions() const;

    /// The two parts, each written into a file of its own.
    QJsonObject startToJson() const;
    QJsonObject endToJson() const;

    /// Both parts with the number and the state, for other programs.
    QJsonObject toJson() const;

    /// Nothing when it is not the first part of a record of a known format.
    static std::optional<RunRecord> fromStart(const QJsonObject& json);

    /// Adds the second part. False, with nothing changed, when it is not one.
    bool readEnd(const QJsonObject& json);
};
