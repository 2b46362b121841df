// SPDX-License-Identifier: MIT
#include "WorkFolder.h"

#include <Clause.h>
#include <PlainText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include <utility>

namespace suite {

namespace {

// Another run may remove the folder between two of our steps.
constexpr int mostAttempts = 10;

constexpr qint64 longestOwner = 500; // bytes

bool isRealFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink();
}

QStringList entriesOf(const QString& path)
{
    return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                QDir::NoDotAndDotDot);
}

// A link is removed itself, never its target.
void removePlainFiles(const QString& folder, const QRegularExpression& names,
                      WorkFolder::Links links = WorkFolder::Links::Keep)
{
    if (!isRealFolder(folder)) {
        return;
    }
    const QStringList entries = entriesOf(folder);
    for (const QString& entry : entries) {
        const QFileInfo info(QDir(folder).filePath(entry));
        if (names.match(entry).hasMatch() &&
            (info.isSymLink() ? links == WorkFolder::Links::Remove : info.isFile())) {
            QFile::remove(info.filePath());
        }
    }
}

} // namespace

WorkFolder::WorkFolder(QString path, QString program)
    : m_path(std::move(path)), m_program(std::move(program))
{}

WorkFolder::~WorkFolder()
{
    if (isOpen()) {
        removeIfEmpty();
    }
}

bool WorkFolder::open()
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        switch (tryOpen()) {
        case Attempt::Done:
            return takeOver();
        case Attempt::Failed:
            return false;
        case Attempt::Again:
            break;
        }
    }
    return fail(QStringLiteral("other runs use it"));
}

WorkFolder::Attempt WorkFolder::tryOpen()
{
    if (!m_folder.make(m_path)) {
        fail(QStringLiteral("it cannot be made, ") + m_folder.error());
        return Attempt::Failed;
    }
    // On a file system without locks the run continues without one.
    switch (m_folder.hold(m_path)) {
    case HeldFolder::Result::Held:
        return Attempt::Done;
    case HeldFolder::Result::Missing:
        return Attempt::Again;
    case HeldFolder::Result::InUse:
        fail(QStringLiteral("another run of %1 on this model%2 uses it").arg(m_program, owner()));
        break;
    case HeldFolder::Result::OtherKind:
        fail(QStringLiteral("something else has this name"));
        break;
    case HeldFolder::Result::Failed:
        fail(QStringLiteral("it cannot be opened, ") + m_folder.error());
        break;
    }
    return Attempt::Failed;
}

// An empty folder is taken over like a new one: an earlier run may have been killed before it wrote
// the mark.
bool WorkFolder::takeOver()
{
    const QString mark = path(markName());
    const QFileInfo info(mark);
    bool isOurs = info.isFile() && !info.isSymLink();
    if (!isOurs && entriesOf(m_path).isEmpty()) {
        QFile file(mark);
        isOurs = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
        if (!isOurs) {
            fail(QStringLiteral("nothing can be written into it, ") + clause(file.errorString()));
        }
    } else if (!isOurs) {
        fail(QStringLiteral("it was not made by %1").arg(m_program));
    }
    if (isOurs) {
        writeOwner();
    } else {
        m_folder.release();
    }
    return isOurs;
}

// Only for messages: on a full disk the mark stays empty.
void WorkFolder::writeOwner() const
{
    QFile file(path(markName()));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(QStringLiteral("process %1 on %2\n")
                       .arg(QString::number(QCoreApplication::applicationPid()),
                            QSysInfo::machineHostName())
                       .toUtf8());
    }
}

// ", process 123 on node1,"; empty if it is unknown.
QString WorkFolder::owner() const
{
    const QFileInfo info(path(markName()));
    QFile file(info.filePath());
    if (!info.isFile() || info.isSymLink() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QString text = QString::fromUtf8(file.readLine(longestOwner)).trimmed();
    return text.isEmpty() ? QString() : QStringLiteral(", ") + excerpt(text) + QLatin1Char(',');
}

QString WorkFolder::path(const QString& name) const
{
    return m_path + QLatin1Char('/') + name;
}

bool WorkFolder::makeFolder(const QString& name)
{
    if (QDir().mkdir(path(name)) || isRealFolder(path(name))) {
        return true;
    }
    return fail(QStringLiteral("no folder '%1' can be made in it").arg(name));
}

void WorkFolder::removeFiles(const QRegularExpression& names) const
{
    removePlainFiles(m_path, names);
}

void WorkFolder::removeFolder(const QString& name, const QRegularExpression& names,
                              Links links) const
{
    for (int end = name.indexOf(QLatin1Char('/')); end >= 0;
         end = name.indexOf(QLatin1Char('/'), end + 1)) {
        if (!isRealFolder(path(name.left(end)))) {
            return;
        }
    }
    removePlainFiles(path(name), names, links);
    QDir().rmdir(path(name));
}

bool WorkFolder::fail(const QString& reason)
{
    m_error = QStringLiteral("the folder '%1' cannot be used, %2")
                  .arg(QFileInfo(m_path).fileName(), reason);
    return false;
}

void WorkFolder::removeIfEmpty()
{
    if (entriesOf(m_path) == QStringList(markName())) {
        QFile::remove(path(markName()));
        m_folder.remove();
    }
}

QString WorkFolder::markName() const
{
    return QStringLiteral("made_by_") + m_program;
}

} // namespace suite
