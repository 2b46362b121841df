// SPDX-License-Identifier: MIT
#include "RecordExport.h"

#include "RecordFolder.h"
#include "RunRecord.h"
#include "RunSummary.h"
#include "RunTexts.h"
#include "ZipWriter.h"

#include <InputFile.h>
#include <OutputFile.h>
#include <TemporaryFolder.h>
#include <VisibleText.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSet>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RecordExport)
};

// Collects the text of README.txt.
class Export
{
public:
    Export(const RunRecord& record, const QString& path, qint64 mostResultBytes)
        : m_record(record), m_folder(record.folder), m_zip(path), m_left(mostResultBytes)
    {}

    bool write()
    {
        return add(QStringLiteral("summary.txt"), Texts::tr("the run for readers"),
                   RunSummary::text(m_record)) &&
               add(QStringLiteral("record.json"),
                   Texts::tr("how the run was started and how it ended"),
                   QJsonDocument(m_record.toJson()).toJson()) &&
               addPart(
                   QFileInfo(RecordFolder(m_record.folder).messagesFile()).fileName(),
                   Texts::tr(
                       "what the component reported, a line of JSON each, with milliseconds")) &&
               addPart(m_record.modelCopy, Texts::tr("the model as it was")) &&
               addPart(m_record.machinesCopy, Texts::tr("the machines file as it was")) &&
               addResults() && m_zip.add(QStringLiteral("README.txt"), readme()) && m_zip.commit();
    }

    QString reason() const { return m_zip.reason(); }

private:
    bool add(const QString& name, const QString& meaning, const QByteArray& content)
    {
        m_contents.append(QStringLiteral("%1: %2").arg(name, meaning));
        return m_zip.add(name, content);
    }

    void leaveOut(const QString& name, const QString& reason)
    {
        m_leftOut.append(QStringLiteral("%1: %2").arg(suite::visibleText(name), reason));
    }

    // A file in the record's folder; its name is empty if the record has none.
    bool addPart(const QString& name, const QString& meaning)
    {
        const QString path = m_folder.filePath(name);
        if (name.isEmpty()) {
            return true;
        }
        suite::InputFile file(path);
        if (!file.readStart(1)) {
            leaveOut(name, file.reason());
            return true;
        }
        m_contents.append(QStringLiteral("%1: %2").arg(name, meaning));
        return m_zip.addFile(name, path, QFileInfo(path).size());
    }

    bool addResults()
    {
        for (const RunRecord::File& file : m_record.files) {
            if (!addResult(file)) {
                return false;
            }
        }
        return true;
    }

    bool addResult(const RunRecord::File& file)
    {
        const Source source = sourceOf(file);
        const QString name = QFileInfo(file.path).fileName();
        if (!source.problem.isEmpty()) {
            leaveOut(name, source.problem);
            return true;
        }
        if (source.size > m_left) {
            leaveOut(name, Texts::tr("it is too large (%1)").arg(RunTexts::size(source.size)));
            return true;
        }
        m_left -= source.size;
        const QString entry = entryName(name);
        m_contents.append((source.mayHaveChanged
                               ? Texts::tr("%1: a file that the run has written; it may have been "
                                           "changed since")
                               : Texts::tr("%1: a file that the run has written"))
                              .arg(suite::visibleText(entry)));
        return m_zip.addFile(entry, source.path, source.size);
    }

    // The path of a result that has not been changed since the run.
    struct Source
    {
        QString path;
        qint64 size = 0;
        QString problem; ///< why there is none, as a clause
        bool mayHaveChanged = false;
    };

    Source sourceOf(const RunRecord::File& file) const
    {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        qint64 size = 0;
        suite::InputFile input(file.path);
        const bool isRead = input.readPieces([&hash, &size](const QByteArray& piece) {
            hash.addData(piece);
            size += piece.size();
            return true;
        });
        const QString sum = QString::fromLatin1(hash.result().toHex());
        if (isRead && (file.checksum.isEmpty() || sum == file.checksum)) {
            return {file.path, size, {}, file.checksum.isEmpty()};
        }
        const QString copy = m_folder.filePath(file.copy);
        if (!file.copy.isEmpty() && QFileInfo(copy).isFile()) {
            return {copy, QFileInfo(copy).size(), {}, false};
        }
        return {
            {}, 0, isRead ? Texts::tr("it has been changed since the run") : input.reason(), false};
    }

    // Files of several folders may have the same name.
    QString entryName(const QString& name)
    {
        QString entry = QStringLiteral("results/") + name;
        for (int i = 2; m_entries.contains(entry); ++i) {
            entry = QStringLiteral("results/%1/%2").arg(i).arg(name);
        }
        m_entries.insert(entry);
        return entry;
    }

    QByteArray readme() const
    {
        QStringList lines = {Texts::tr("The record of run %1 of %2")
                                 .arg(m_record.number)
                                 .arg(suite::visibleFileName(m_record.model)),
                             QString()};
        lines += m_contents;
        if (!m_leftOut.isEmpty()) {
            lines += {QString(), Texts::tr("Left out:")};
            lines += m_leftOut;
        }
        lines +=
            {QString(),
             Texts::tr("The record names the user, the computer, folders, and variables of the\n"
                       "environment that are set in the launch options.")};
        return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    }

    const RunRecord& m_record;
    QDir m_folder;
    ZipWriter m_zip;
    qint64 m_left;
    QSet<QString> m_entries;
    QStringList m_contents;
    QStringList m_leftOut;
};

bool moveInto(const QString& source, const QString& path, QString& problem)
{
    suite::OutputFile output(path);
    suite::InputFile input(source);
    const bool isWritten = output.open() && input.readPieces([&output](const QByteArray& piece) {
        return output.append(piece);
    }) && output.commit();
    if (!isWritten) {
        const QString reason = output.reason().isEmpty() ? input.reason() : output.reason();
        problem = Texts::tr("%1 cannot be written: %2").arg(QDir::toNativeSeparators(path), reason);
    }
    return isWritten;
}

} // namespace

// Uses a temporary folder: the zip library writes its own temporary file beside the target, and a
// killed program would leave it there for the user to find.
bool RecordExport::exportRecord(const RunRecord& record, const QString& zipPath, QString& problem,
                                qint64 mostResultBytes)
{
    const suite::TemporaryFolder folder(QStringLiteral("kestdesk-export"));
    if (!folder.isValid()) {
        problem = folder.error();
        return false;
    }
    const QString temporary = folder.filePath(QStringLiteral("record.zip"));
    Export content(record, temporary, mostResultBytes);
    if (!content.write()) {
        problem = Texts::tr("%1 cannot be written: %2").arg(temporary, content.reason());
        return false;
    }
    return moveInto(temporary, zipPath, problem);
}
