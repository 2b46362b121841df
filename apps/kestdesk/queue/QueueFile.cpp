// SPDX-License-Identifier: MIT
#include "QueueFile.h"

#include "Component.h"
#include "RunOptionWords.h"

#include <FileReplacement.h>
#include <InputFile.h>
#include <OutputFile.h>
#include <ProcessMark.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr qint64 mostBytes = 4 << 20;
const QString componentKey = QStringLiteral("component");
const QString modelKey = QStringLiteral("model");
const QString optionsKey = QStringLiteral("runOptions");
const QString heldKey = QStringLiteral("held");
const QString runsKey = QStringLiteral("runs");
const QString takenKey = QStringLiteral("takenFrom"); // names of files that this one replaces

QString fileName(const QString& mark)
{
    return QStringLiteral("queue-%1.json").arg(mark);
}

// The name of a file that another process has left and this one takes over.
QString leftName()
{
    const quint32 number = QRandomGenerator::global()->generate();
    return fileName(QStringLiteral("left-%1-%2").arg(number).arg(ProcessMark::own().word()));
}

QJsonObject toJson(const QueuedRun& run)
{
    return {{componentKey, run.component},
            {modelKey, run.model},
            {optionsKey, QJsonArray::fromStringList(RunOptionWords::of(run.options))},
            {heldKey, run.isHeld}};
}

QStringList wordsOf(const QJsonValue& list)
{
    QStringList words;
    const QJsonArray array = list.toArray();
    for (const QJsonValue& word : array) {
        words.append(word.toString());
    }
    return words;
}

// Nothing for an invalid row.
std::optional<QueuedRun> toRun(const QJsonValue& row)
{
    QueuedRun run;
    run.component = row[componentKey].toString();
    run.model = row[modelKey].toString();
    run.options = RunOptionWords::options(wordsOf(row[optionsKey]));
    run.isHeld = row[heldKey].toBool();
    const bool isValid =
        Component::find(run.component) != nullptr && QDir::isAbsolutePath(run.model);
    return isValid ? std::make_optional(run) : std::nullopt;
}

// Empty if the file is damaged.
QJsonObject contentOf(const QString& path)
{
    const QByteArray content = suite::InputFile(path).read(mostBytes).value_or(QByteArray());
    return QJsonDocument::fromJson(content).object();
}

// Skips invalid rows. Whether there are none.
bool read(const QString& path, QVector<QueuedRun>& runs)
{
    const QJsonValue rows = contentOf(path).value(runsKey);
    bool isWhole = rows.isArray();
    const QJsonArray array = rows.toArray();
    for (const QJsonValue& row : array) {
        const std::optional<QueuedRun> run = toRun(row);
        isWhole = isWhole && run;
        if (run) {
            runs.append(*run);
        }
    }
    return isWhole;
}

// Without room for a copy the file itself is kept.
QString keepDamaged(const QString& path, const QString& name)
{
    const QString kept = name + QStringLiteral(".damaged");
    return QFile::copy(path, kept) || FileReplacement::rename(path, kept) ? kept : path;
}

QStringList queueFiles(const QDir& folder)
{
    return folder.entryList({fileName(QStringLiteral("*"))}, QDir::Files);
}

// Whether the process that the file belongs to has ended.
bool isLeft(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral("^queue-(?:left-[0-9]+-)?(%1)\\.json$")
                                                .arg(QLatin1String(ProcessMark::pattern)));
    const auto mark = ProcessMark::parse(pattern.match(name).captured(1));
    return mark && mark->hasEnded();
}

} // namespace

QueueFile::QueueFile(QString folder) : m_folder(std::move(folder))
{}

QString QueueFile::path() const
{
    return QDir(m_folder).filePath(fileName(ProcessMark::own().word()));
}

bool QueueFile::write(const QVector<QueuedRun>& runs)
{
    m_reason.clear();
    const bool isWritten = runs.isEmpty() ? removeFile() : replaceFile(runs);
    if (isWritten) {
        removeTaken();
    }
    return isWritten;
}

bool QueueFile::removeFile()
{
    if (QFile::exists(path()) && !FileReplacement::remove(path())) {
        m_reason = QStringLiteral("%1 cannot be removed").arg(path());
    }
    return m_reason.isEmpty();
}

bool QueueFile::replaceFile(const QVector<QueuedRun>& runs)
{
    QJsonArray rows;
    for (const QueuedRun& run : runs) {
        rows.append(toJson(run));
    }
    QDir().mkpath(m_folder);
    suite::OutputFile file(path());
    const QJsonObject content{{runsKey, rows},
                              {takenKey, QJsonArray::fromStringList(takenNames())}};
    if (!file.replace(QJsonDocument(content).toJson())) {
        m_reason = QStringLiteral("%1 cannot be written: %2").arg(file.path(), file.reason());
        return false;
    }
    return true;
}

// If several programs find the same file, the one that succeeds in renaming it takes the runs. The
// renamed file carries the mark of this process until write() has put the runs into the file of
// this process.
//
// Which files are left is decided once, and before any is read: a program that ends meanwhile may
// have replaced one of them. What is superseded is removed before the first file is renamed, so
// that a program that no longer finds the file that says so does not find the superseded one
// either.
QueueFile::Left QueueFile::takeLeft() const
{
    Left left;
    const QDir folder(m_folder);
    QStringList names = leftNames();
    const QStringList superseded = supersededNames();
    for (const QString& name : superseded) {
        if (names.removeAll(name) > 0) {
            FileReplacement::remove(folder.filePath(name));
        }
    }
    for (const QString& name : qAsConst(names)) {
        const QString path = folder.filePath(name);
        const QString newPath = folder.filePath(leftName());
        if (FileReplacement::rename(path, newPath) && !read(newPath, left.runs)) {
            left.damaged.append(keepDamaged(newPath, path));
        }
    }
    return left;
}

QStringList QueueFile::leftNames() const
{
    QStringList names = queueFiles(QDir(m_folder));
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const QString& name) { return !isLeft(name); }),
                names.end());
    return names;
}

QStringList QueueFile::takenNames() const
{
    return QDir(m_folder).entryList(
        {fileName(QStringLiteral("left-*-") + ProcessMark::own().word())}, QDir::Files);
}

void QueueFile::removeTaken() const
{
    const QDir folder(m_folder);
    const QStringList names = takenNames();
    for (const QString& name : names) {
        FileReplacement::remove(folder.filePath(name));
    }
}

// What a process took over and had in its own file when it was killed before it removed them.
QStringList QueueFile::supersededNames() const
{
    QStringList names;
    const QDir folder(m_folder);
    const QStringList files = queueFiles(folder);
    for (const QString& file : files) {
        names += wordsOf(contentOf(folder.filePath(file)).value(takenKey));
    }
    return names;
}
