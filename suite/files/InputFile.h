// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

class QFile;

namespace suite {

/// Reads a file that a user has named. Only opens regular files, because reading a pipe or a device
/// may block for ever, and never reads more than the caller allows.
class InputFile
{
public:
    enum class Problem { None, BadName, Missing, Folder, NotRegular, TooLarge, Unreadable };

    explicit InputFile(QString path);

    /// Reads the whole content; nothing if there is a problem. A file of more than `mostBytes` is
    /// one.
    std::optional<QByteArray> read(qint64 mostBytes);

    /// Reads the first bytes, all if the file has fewer; nothing if there is a problem.
    std::optional<QByteArray> readStart(qint64 bytes);

    /// Passes the whole content on in pieces, however large it is. Stops and returns false if there
    /// is a problem or if `take` returns false.
    bool readPieces(const std::function<bool(const QByteArray& piece)>& take);

    /// Whether the path is that of a regular file, or one can be created there.
    bool checkPlace();

    /// The problem of the last call.
    Problem problem() const { return m_problem; }

    /// The problem as part of a sentence: "it is a folder". Empty without one.
    QString reason() const { return m_reason; }

private:
    bool open(QFile& file);
    bool fail(Problem problem, const QString& reason);

    QString m_path;
    Problem m_problem = Problem::None;
    QString m_reason;
};

} // namespace suite
