// SPDX-License-Identifier: MIT
#pragma once

#include "RecordedMessage.h"
#include "RunRecord.h"

#include <LineDifference.h>
#include <TableDifference.h>

#include <optional>

/// The differences between the records of two runs, the left and the right one. A plain value.
struct RunComparison
{
    /// Compares two records. Reads their messages, the copies of models and machines files, and
    /// tables of results: waits for the disk.
    static RunComparison of(const RunRecord& left, const RunRecord& right);

    /// A field of the records; the value is empty if a record does not have it.
    struct Field
    {
        QString name;  ///< key in RunRecord::toJson(), launch option or variable
        QString label; ///< in the user's language
        QString left;
        QString right;
    };

    /// A text that both records keep.
    struct Text
    {
        QString file; ///< kind of text: "model"
        bool isSame = true;
        QVector<suite::LineChange> changes; ///< empty if only the line ends differ
        QString problem; ///< why the texts could not be compared, as a clause; else empty
    };

    /// An error, a warning or a notice that one run has reported more often than the other.
    struct Message
    {
        RecordedMessage::Type type = RecordedMessage::Type::Error;
        QString text;
        int left = 0; ///< number of times
        int right = 0;
    };

    /// A file that one or both of the runs have written. Files correspond if their names are the
    /// same, or differ only by the names of the models.
    struct File
    {
        enum class State { Same, Different, OnlyLeft, OnlyRight, Unknown };

        QString name; ///< of the left file or else the right one, relative to the model's folder
        State state = State::Unknown;
        std::optional<RunRecord::File> left;
        std::optional<RunRecord::File> right;
        std::optional<suite::TableDifference> table; ///< for different tables over frequency
        QString problem; ///< why different tables were not compared, as a clause; mostly empty

        /// The word for a state: "same", "different", "only left", ...
        static QString word(State state);
    };

    int leftNumber = 0;
    int rightNumber = 0;
    qint64 leftDuration = 0; ///< milliseconds
    qint64 rightDuration = 0;

    // These contain only differences.
    QVector<Field> run;
    QVector<Field> launchOptions;
    QVector<Field> environment;
    QVector<Field> computer;
    QVector<Field> outcome;
    QVector<Message> messages; ///< errors first

    Text model;
    Text machinesFile;
    QVector<File> files;  ///< all files
    QStringList problems; ///< other parts that could not be compared, as clauses

    /// Whether nothing but the times differs, and everything could be compared.
    bool isSame() const;

    /// The fields of the group "outcome" with their values in the user's language.
    QVector<Field> shownOutcome() const;

    QJsonObject toJson() const;
};
