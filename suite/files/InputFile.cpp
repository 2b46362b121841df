// SPDX-License-Identifier: MIT
#include "InputFile.h"

#include "Clause.h"
#include "FileName.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace suite {

namespace {

QString sizeText(qint64 bytes)
{
    constexpr qint64 megabyte = 1 << 20;
    return bytes >= megabyte ? QStringLiteral("%1 MB").arg(bytes / megabyte)
                             : QStringLiteral("%1 bytes").arg(bytes);
}

// Some regular files say that they are empty and are not, and others grow meanwhile. Asking for the
// most at once would allocate it, for a file of a few bytes, and Windows prepares all of it.
QByteArray readUpTo(QFile& file, qint64 mostBytes)
{
    constexpr qint64 leastPiece = 1 << 14;
    QByteArray content;
    qint64 had = -1;
    while (had < content.size() && content.size() < mostBytes) {
        had = content.size();
        const qint64 expected = qMax(file.size() - had + 1, leastPiece);
        content += file.read(qMin(expected, mostBytes - had));
    }
    return content;
}

} // namespace

InputFile::InputFile(QString path) : m_path(std::move(path))
{}

std::optional<QByteArray> InputFile::read(qint64 mostBytes)
{
    const QString tooLarge = QStringLiteral("it is larger than %1").arg(sizeText(mostBytes));
    QFile file(m_path);
    if (!open(file)) {
        return std::nullopt;
    }
    if (file.size() > mostBytes) {
        fail(Problem::TooLarge, tooLarge);
        return std::nullopt;
    }
    QByteArray content = readUpTo(file, mostBytes + 1);
    if (file.error() != QFileDevice::NoError) {
        fail(Problem::Unreadable, file.errorString());
        return std::nullopt;
    }
    if (content.size() > mostBytes) {
        fail(Problem::TooLarge, tooLarge);
        return std::nullopt;
    }
    return content;
}

std::optional<QByteArray> InputFile::readStart(qint64 bytes)
{
    QFile file(m_path);
    if (!open(file)) {
        return std::nullopt;
    }
    QByteArray content = file.read(bytes);
    if (file.error() != QFileDevice::NoError) {
        fail(Problem::Unreadable, file.errorString());
        return std::nullopt;
    }
    return content;
}

bool InputFile::readPieces(const std::function<bool(const QByteArray& piece)>& take)
{
    constexpr qint64 pieceSize = 1 << 20;
    QFile file(m_path);
    if (!open(file)) {
        return false;
    }
    QByteArray piece;
    do {
        piece = file.read(pieceSize);
        if (file.error() != QFileDevice::NoError) {
            return fail(Problem::Unreadable, file.errorString());
        }
    } while (!piece.isEmpty() && take(piece));
    return piece.isEmpty();
}

bool InputFile::checkPlace()
{
    const QFileInfo info(m_path);
    const QString nameProblem = FileName::problem(m_path);
    if (m_path.isEmpty()) {
        return fail(Problem::Missing, QStringLiteral("no file is named"));
    }
    if (!nameProblem.isEmpty()) {
        return fail(Problem::BadName, nameProblem);
    }
    if (info.isDir()) {
        return fail(Problem::Folder, QStringLiteral("it is a folder"));
    }
    if (info.exists() && !info.isFile()) {
        return fail(Problem::NotRegular, QStringLiteral("it is not a regular file"));
    }
    return fail(Problem::None, QString());
}

bool InputFile::open(QFile& file)
{
    if (!checkPlace()) {
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(QFileInfo::exists(m_path) ? Problem::Unreadable : Problem::Missing,
                    file.errorString());
    }
    return true;
}

bool InputFile::fail(Problem problem, const QString& reason)
{
    m_problem = problem;
    m_reason = clause(reason);
    return problem == Problem::None;
}

} // namespace suite
