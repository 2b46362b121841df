#pragma once

#include "RecordedMessage.h"
#include "RunRecord.h"

#include <LineDifference.h>
#include <TableDifference.h>

#include <optional>

/// The differences between two runs, the left and the right one, as their records tell them. A
/// plain value.
struct RunComparison
{
    /// Compares two records. Reads their messages, the copies of models and machines files, and
    /// tables of results: waits for the disk.
    static RunComparison of(const RunRecord& left, const RunRecord& right);

    /// Something that has a value in each record; the value is empty where it has none.
    struct Field
    {
        QString name;  ///< as in RunRecord::toJson(); that of a launch option or of a variable
        QString label; ///< for readers
        QString left;
        QString right;
    };

    /// Two texts that the records keep.
    struct Text
    {
        QString file; ///< what it is: "model"
        bool isSame = true;
        QVector<suite::LineChange> changes; ///< none where only the ends of lines differ
        QString problem; ///< why the changes are not known, as a clause; empty when they are
    };

    /// An error, a warning or a notice that one run has given more often than the other one.
    struct Message
    {
        RecordedMessage::Type type = RecordedMessage::Type::Error;
        QString text;
        int left = 0; ///< how often
        int right = 0;
    };

    /// A file that one of the runs, or both, have written. Files correspond when their names are
    /// the same, or differ as the names of the models do.
    struct File
    {
        enum class State { Same, Different, OnlyLeft, OnlyRight, Unknown };

        QString name; ///< of the left one, or else of the right one, relative to the model's folder
        State state = State::Unknown;
        std::optional<RunRecord::File> left;
        std::optional<RunRecord::File> right;
        std::optional<suite::TableDifference> table; ///< of different tables over frequency
        QString problem; ///< why different tables were not compared, as a clause; mostly empty

        /// The word for a state: "same", "different", "only left", ...
        static QString word(State state);
    };

    int leftNumber = 0;
    int rightNumber = 0;
    qint64 leftDuration = 0; ///< milliseconds
    qint64 rightDuration = 0;

    // Only what differs.
    QVector<Field> run;
    QVector<Field> launchOptions;
    QVector<Field> environment;
    QVector<Field> computer;
    QVector<Field> outcome;
    QVector<Message> messages; ///< errors first

    Text model;
    Text machinesFile;
    QVector<File> files;  ///< all of them
    QStringList problems; ///< what else could not be compared, as clauses

    /// Whether nothing differs but the times, and everything could be compared.
    bool isSame() const;

    QJsonObject toJson() const;
};
