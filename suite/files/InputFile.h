#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

class QFile;

namespace suite {

/// Reads a file that a user has named. Only regular files are opened, since a pipe or a device may
/// keep its reader waiting for ever, and never more is read than the caller has use for.
class InputFile
{
public:
    enum class Problem { None, BadName, Missing, Folder, NotRegular, TooLarge, Unreadable };

    explicit InputFile(QString path);

    /// The whole content; nothing when there is a problem, as with more than that many bytes.
    std::optional<QByteArray> read(qint64 mostBytes);

    /// The first bytes, however large the file is; fewer when there are no more. Nothing when there
    /// is a problem.
    std::optional<QByteArray> readStart(qint64 bytes);

    /// The whole content in pieces, however large it is. False when there is a problem, or when
    /// `take` returns false: then no more is read.
    bool readPieces(const std::function<bool(const QByteArray& piece)>& take);

    /// Whether a regular file is at the path, or can be made there.
    bool checkPlace();

    /// Of the last call.
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
