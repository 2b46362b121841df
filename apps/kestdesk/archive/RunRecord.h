// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// The record of one run except for its messages: how it was started and, after the end, how it
/// ended. A plain value.
struct RunRecord
{
    enum class State {
        Running,     ///< the program that follows the run is alive and has not written the end
        Interrupted, ///< that program has ended without writing the end: killed, or a power cut
        Valid,
        Fault,
        NotStarted,
        Stopped,
        Damaged ///< what says how it was started cannot be read
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
    int segments = 0;         ///< of the model; 0 when it could not be read
    int frequencies = 0;      ///< of its sweep; 0 when it could not be read
    int processes = 1;        ///< number of processes that solve the model at once
    int repeats = 0;          ///< number of the run that this one repeats; 0 when it repeats none
    QStringList leftOutHosts; ///< hosts of the repeated run's machines file that are left out
    QDateTime started;        ///< UTC

    // How it ended.
    State state = State::Running;
    QDateTime ended;      ///< UTC; for an interrupted run the time of the last message
    qint64 duration = 0;  ///< milliseconds
    QString outcome;      ///< in a few words: "fault, SIGKILL"
    QString reason;       ///< a clause whose subject is the component; may be empty
    QString problem;      ///< why it could not be started, as a clause; may be empty
    QString stoppedBy;    ///< in words that follow "stopped by"; empty if kestdesk did not stop it
    int exitCode = 0;     ///< exit code, or number of the signal
    bool isCrash = false; ///< whether the code is that of a signal
    int totalPercentage = 0;
    int errors = 0;
    int warnings = 0;
    int notices = 0;
    QStringList lastLines; ///< of the output
    QVector<File> files;
    int omittedLines = 0; ///< lines of output beyond the size limit of a record
    QString gap;          ///< why the record is not complete, as a clause; empty when it is

    bool hasEnded() const { return state != State::Running; }

    /// The word for the state: "running", "interrupted", "valid", ...
    static QString word(State state);

    /// Absolute path of the copy of the model; empty if there is none.
    QString modelCopyPath() const;

    /// The options that differ from the installation's defaults.
    QVector<Option> changedOptions() const;

    /// The two parts, which are written into separate files.
    QJsonObject startToJson() const;
    QJsonObject endToJson() const;

    /// Both parts with the number and the state, for other programs.
    QJsonObject toJson() const;

    /// Reads the first part; nothing if the object is not one, or has an unknown format.
    static std::optional<RunRecord> fromStart(const QJsonObject& json);

    /// Reads the second part. False, and nothing is changed, if the object is not one.
    bool readEnd(const QJsonObject& json);
};
