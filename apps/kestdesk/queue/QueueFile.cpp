#include "QueueFile.h"

#include "Component.h"
#include "RunOptionWords.h"

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

#include <utility>

namespace {

constexpr qint64 mostBytes = 4 << 20;
const QString componentKey = QStringLiteral("component");
const QString modelKey = QStringLiteral("model");
const QString optionsKey = QStringLiteral("runOptions");
const QString heldKey = QStringLiteral("held");
const QString runsKey = QStringLiteral("runs");

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

// Invalid rows are skipped.
void read(const QString& path, QVector<QueuedRun>& runs)
{
    const QByteArray content = suite::InputFile(path).read(mostBytes).value_or(QByteArray());
    const QJsonObject json = QJsonDocument::fromJson(content).object();
    const QJsonArray array = json.value(runsKey).toArray();
    for (const QJsonValue& row : array) {
        QueuedRun run;
        run.component = row[componentKey].toString();
        run.model = row[modelKey].toString();
        run.options = RunOptionWords::options(wordsOf(row[optionsKey]));
        run.isHeld = row[heldKey].toBool();
        if (Component::find(run.component) != nullptr && QDir::isAbsolutePath(run.model)) {
            runs.append(run);
        }
    }
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
    if (QFile::exists(path()) && !QFile::remove(path())) {
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
    if (!file.replace(QJsonDocument(QJsonObject{{runsKey, rows}}).toJson())) {
        m_reason = QStringLiteral("%1 cannot be written: %2").arg(file.path(), file.reason());
        return false;
    }
    return true;
}

// If several programs find the same file, the one that succeeds in renaming it takes the runs. The
// renamed file carries the mark of this process until write() has put the runs into the file of
// this process.
QVector<QueuedRun> QueueFile::takeLeft() const
{
    QVector<QueuedRun> runs;
    const QDir folder(m_folder);
    const QRegularExpression pattern(QStringLiteral("^queue-(?:left-[0-9]+-)?(%1)\\.json$")
                                         .arg(QLatin1String(ProcessMark::pattern)));
    const QStringList names = folder.entryList({QStringLiteral("queue-*.json")}, QDir::Files);
    for (const QString& name : names) {
        const auto mark = ProcessMark::parse(pattern.match(name).captured(1));
        const QString newName = folder.filePath(leftName());
        if (mark && mark->hasEnded() && QFile::rename(folder.filePath(name), newName)) {
            read(newName, runs);
        }
    }
    return runs;
}

void QueueFile::removeTaken() const
{
    const QDir folder(m_folder);
    const QString pattern = fileName(QStringLiteral("left-*-") + ProcessMark::own().word());
    const QStringList names = folder.entryList({pattern}, QDir::Files);
    for (const QString& name : names) {
        QFile::remove(folder.filePath(name));
    }
}
