// SPDX-License-Identifier: MIT
#include "FileComparison.h"

#include <InputFile.h>
#include <ResultTable.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QMap>

namespace {

using File = RunComparison::File;
using State = File::State;

constexpr qint64 largestTable = 64 << 20;

// Indexed by State.
constexpr const char* stateWords[] = {"same", "different", "only left", "only right", "unknown"};

QString relativeName(const RunRecord& record, const RunRecord::File& file)
{
    return QFileInfo(record.model).absoluteDir().relativeFilePath(file.path);
}

// What the names of corresponding files of two models have in common: the part without the model's
// name.
QString key(const RunRecord& record, const RunRecord::File& file)
{
    const QString name = relativeName(record, file);
    const QString model = QFileInfo(record.model).completeBaseName();
    return !model.isEmpty() && name.startsWith(model) ? QLatin1Char('/') + name.mid(model.size())
                                                      : name;
}

State compare(const RunRecord::File& left, const RunRecord::File& right)
{
    if (left.size != right.size) {
        return State::Different;
    }
    if (left.size < 0) {
        return State::Same;
    }
    if (left.checksum.isEmpty() || right.checksum.isEmpty()) {
        return State::Unknown;
    }
    return left.checksum == right.checksum ? State::Same : State::Different;
}

// The table that a run has written, if it has not been changed since.
class WrittenTable
{
public:
    WrittenTable(const RunRecord& record, const RunRecord::File& file)
    {
        const QString path =
            file.copy.isEmpty() ? file.path : QDir(record.folder).filePath(file.copy);
        m_isTable = suite::ResultTable::isTable(path);
        const auto content = suite::InputFile(path).read(largestTable);
        const QByteArray sum =
            QCryptographicHash::hash(content.value_or(QByteArray()), QCryptographicHash::Sha256);
        if (!content || file.checksum != QString::fromLatin1(sum.toHex())) {
            m_problem = QStringLiteral("%1 is no longer what run %2 has written")
                            .arg(QDir::toNativeSeparators(file.path))
                            .arg(record.number);
        } else if (m_isTable) {
            m_table = suite::ResultTable::parse(*content);
        }
    }

    bool isTable() const { return m_isTable; }
    bool isReadable() const { return m_table && m_table->error.isEmpty(); }
    QString problem() const { return m_problem; }
    const suite::ResultTable& table() const { return *m_table; }

private:
    bool m_isTable = false;
    std::optional<suite::ResultTable> m_table;
    QString m_problem;
};

void compareTables(const RunRecord& left, const RunRecord& right, File& file)
{
    const WrittenTable leftTable(left, *file.left);
    const WrittenTable rightTable(right, *file.right);
    if (leftTable.isReadable() && rightTable.isReadable()) {
        file.table = suite::TableDifference::of(leftTable.table(), rightTable.table());
    } else if (leftTable.isTable() || rightTable.isTable()) {
        file.problem = leftTable.problem().isEmpty() ? rightTable.problem() : leftTable.problem();
    }
}

QJsonValue toJson(const std::optional<RunRecord::File>& file)
{
    return file ? QJsonValue(QJsonObject{{QStringLiteral("path"), file->path},
                                         {QStringLiteral("size"), file->size},
                                         {QStringLiteral("checksum"), file->checksum}})
                : QJsonValue();
}

QJsonObject toJson(const suite::Impedance& impedance)
{
    return {{QStringLiteral("resistance"), impedance.resistance},
            {QStringLiteral("reactance"), impedance.reactance}};
}

QJsonValue toJson(const std::optional<suite::TableDifference>& table)
{
    return table ? QJsonValue(QJsonObject{{QStringLiteral("commonFrequencies"), table->common},
                                          {QStringLiteral("onlyLeft"), table->onlyLeft},
                                          {QStringLiteral("onlyRight"), table->onlyRight},
                                          {QStringLiteral("knownInOneOnly"), table->unknown},
                                          {QStringLiteral("largestRelative"), table->largest},
                                          {QStringLiteral("frequencyMHz"), table->frequency},
                                          {QStringLiteral("left"), toJson(table->left)},
                                          {QStringLiteral("right"), toJson(table->right)}})
                 : QJsonValue();
}

} // namespace

QString RunComparison::File::word(State state)
{
    return QLatin1String(stateWords[static_cast<int>(state)]);
}

QVector<File> FileComparison::of(const RunRecord& left, const RunRecord& right)
{
    QMap<QString, RunRecord::File> rightFiles;
    for (const RunRecord::File& file : right.files) {
        rightFiles.insert(key(right, file), file);
    }
    QVector<File> result;
    for (const RunRecord::File& leftFile : left.files) {
        File file;
        file.name = relativeName(left, leftFile);
        file.left = leftFile;
        file.state = State::OnlyLeft;
        const auto found = rightFiles.find(key(left, leftFile));
        if (found != rightFiles.end()) {
            file.right = *found;
            file.state = compare(leftFile, *found);
            rightFiles.erase(found);
        }
        if (file.state == State::Different) {
            compareTables(left, right, file);
        }
        result.append(file);
    }
    for (const RunRecord::File& rightFile : qAsConst(rightFiles)) {
        File file;
        file.name = relativeName(right, rightFile);
        file.state = State::OnlyRight;
        file.right = rightFile;
        result.append(file);
    }
    return result;
}

QJsonArray FileComparison::toJson(const QVector<File>& files)
{
    QJsonArray array;
    for (const File& file : files) {
        array.append(QJsonObject{{QStringLiteral("name"), file.name},
                                 {QStringLiteral("state"), File::word(file.state)},
                                 {QStringLiteral("left"), ::toJson(file.left)},
                                 {QStringLiteral("right"), ::toJson(file.right)},
                                 {QStringLiteral("table"), ::toJson(file.table)},
                                 {QStringLiteral("problem"), file.problem}});
    }
    return array;
}
