// SPDX-License-Identifier: MIT
#include "common_SettingsFile.h"

#include "common_IniRepair.h"
#include "common_IniText.h"
#include "common_SettingsDraft.h"
#include "common_WriteGuard.h"

#include <FileReplacement.h>
#include <KEST_binfiles_paths.h>
#include <MarkedFolders.h>
#include <SamePath.h>
#include <SpecialPath.h>
#include <common_settings.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <memory>

namespace {

constexpr qint64 megabyte = 1 << 20;
constexpr unsigned long replacementPause = 5; // milliseconds

/// A file that this process is changing.
struct OpenChange
{
    QString file; ///< its real path
    QString copy; ///< what the change is made to
};

// The innermost change is the last one. Settings are used in one thread.
QVector<OpenChange>& openChanges()
{
    static QVector<OpenChange> changes;
    return changes;
}

/// The copy to which a change of the file is being made; empty when there is no change.
QString copyInChange(const QString& file)
{
    const QVector<OpenChange>& changes = openChanges();
    const auto found =
        std::find_if(changes.cbegin(), changes.cend(), [&file](const OpenChange& change) {
            return SamePath::areEqual(change.file, file);
        });
    return found == changes.cend() ? QString() : found->copy;
}

/// Registers a change as long as this object exists.
class ChangeNote
{
public:
    ChangeNote(const QString& file, const QString& copy) { openChanges().append({file, copy}); }
    ChangeNote(const ChangeNote&) = delete;
    ChangeNote& operator=(const ChangeNote&) = delete;
    ~ChangeNote() { openChanges().removeLast(); }
};

/// Keeps a group open as long as this object exists.
class OpenGroup
{
public:
    OpenGroup(QSettings& settings, const QString& name) : m_settings(settings)
    {
        m_settings.beginGroup(name);
    }
    OpenGroup(const OpenGroup&) = delete;
    OpenGroup& operator=(const OpenGroup&) = delete;

    // Also closes groups that a subclass has left open: they would hide the other groups.
    ~OpenGroup()
    {
        do {
            m_settings.endGroup();
        } while (!m_settings.group().isEmpty());
    }

    QString prefix() const
    {
        const QString group = m_settings.group();
        return group.isEmpty() ? group : group + QLatin1Char('/');
    }

private:
    QSettings& m_settings;
};

// Calls access with the group open. Returns the prefix of the group's keys.
QString accessGroup(QSettings& settings, const QString& group,
                    const common_SettingsFile::Access& access)
{
    const OpenGroup open(settings, group);
    QString prefix = open.prefix();
    access(settings);
    return prefix;
}

// QSettings reports lines that it cannot read once it had to look at all of them, but not values:
// those that it cannot read are invalid, like those that were stored as invalid.
bool isDamaged(const QSettings& settings, const QByteArray& content)
{
    const QStringList keys = settings.allKeys();
    return settings.status() == QSettings::FormatError || common_IniRepair::isNeeded(content) ||
           !std::all_of(keys.cbegin(), keys.cend(), common_SettingsValues::isProper) ||
           (content.contains('@') &&
            common_SettingsValues(settings).countNothing() > content.count("@Invalid()"));
}

// The content in a form that every QSettings reads alike, and in a reasonable time.
QByteArray readable(const QByteArray& content)
{
    return common_IniText::readable(
        common_IniRepair::isNeeded(content) ? common_IniRepair::repaired(content) : content);
}

QString limitText()
{
    return QStringLiteral("larger than %1 MB").arg(common_settings::largestFile / megabyte);
}

// Where a copy of the file can be changed: in the folder for temporary files, or else beside it.
QStringList draftPlaces(const QFileInfo& file)
{
    return {QDir::temp().filePath(MarkedFolders::marked(QStringLiteral("kest-settings"))),
            file.dir().filePath(QLatin1Char('.') + file.fileName())};
}

// Until it is done; for a while only, in which another process may replace the file, where that
// keeps it from being opened.
template <typename Step>
bool repeat(Step step)
{
    QElapsedTimer waiting;
    waiting.start();
    while (!step()) {
        if (waiting.elapsed() >= FileReplacement::longestWait()) {
            return false;
        }
        QThread::msleep(replacementPause);
    }
    return true;
}

} // namespace

common_SettingsFile::common_SettingsFile(const QString& fileName, QSettings::Format format)
    : m_fileName(fileName), m_format(format)
{}

QString common_SettingsFile::problem() const
{
    const QString kind = SpecialPath::kind(m_fileName);
    if (!kind.isEmpty()) {
        return QStringLiteral("it is ") + kind;
    }
    const QFileInfo file(m_fileName);
    if (file.exists() && !file.isReadable()) {
        return QStringLiteral("it may not be read");
    }
    return file.size() > common_settings::largestFile ? QStringLiteral("it is ") + limitText()
                                                      : QString();
}

// Empty content for a file that is not there yet.
QString common_SettingsFile::load(QByteArray& content) const
{
    QString reason = problem();
    QFile file(m_fileName);
    if (!reason.isEmpty() || !QFileInfo::exists(m_fileName)) {
        return reason;
    }
    if (!repeat([&file] { return file.open(QIODevice::ReadOnly); })) {
        return QStringLiteral("it cannot be read (%1)").arg(file.errorString());
    }
    content = file.read(common_settings::largestFile + 1);
    if (file.error() != QFileDevice::NoError) {
        return QStringLiteral("it cannot be read (%1)").arg(file.errorString());
    }
    return content.size() > common_settings::largestFile ? QStringLiteral("it is ") + limitText()
                                                         : QString();
}

// Null, with the reason, where there is no place for it.
std::unique_ptr<common_SettingsDraft> common_SettingsFile::repairedCopy(const QByteArray& content,
                                                                        QString& failure) const
{
    const QStringList places = draftPlaces(QFileInfo(m_fileName));
    for (const QString& place : places) {
        auto draft = std::make_unique<common_SettingsDraft>(place);
        failure = draft->begin(readable(content));
        if (failure.isEmpty()) {
            return draft;
        }
    }
    return nullptr;
}

void common_SettingsFile::read(const QString& group, const Access& read, Damage damage) const
{
    const QString copy = copyInChange(KEST_binfiles_real_path(m_fileName));
    if (!copy.isEmpty()) {
        QSettings settings(copy, m_format);
        accessGroup(settings, group, read);
        return;
    }
    QByteArray content;
    QString failure = load(content);
    std::unique_ptr<common_SettingsDraft> draft;
    if (failure.isEmpty() && readable(content) != content) {
        draft = repairedCopy(content, failure);
    }
    if (!failure.isEmpty()) {
        qWarning("The settings file %s was not read: %s.", qUtf8Printable(m_fileName),
                 qUtf8Printable(failure));
        QSettings nothing(QStringLiteral(":/no settings"), m_format);
        accessGroup(nothing, group, read);
        return;
    }
    std::unique_ptr<QSettings> settings;
    repeat([&] {
        settings = std::make_unique<QSettings>(draft ? draft->fileName() : m_fileName, m_format);
        return settings->status() != QSettings::AccessError;
    });
    if (damage == Damage::KeepCopy) {
        keepIfDamaged(*settings, content);
    }
    accessGroup(*settings, group, read);
}

QString common_SettingsFile::change(const QString& group, const Access& write) const
{
    const QString file = KEST_binfiles_real_path(m_fileName);
    const QString copy = copyInChange(file);
    return copy.isEmpty() ? changeAlone(file, group, write) : changeWithin(copy, group, write);
}

QString common_SettingsFile::changeAlone(const QString& file, const QString& group,
                                         const Access& write) const
{
    QString reason = problem();
    if (!reason.isEmpty()) {
        return reason;
    }
    if (!QDir().mkpath(QFileInfo(file).absolutePath())) {
        return QStringLiteral("its folder cannot be made");
    }
    const common_WriteGuard guard(file);
    const QString failure = guard.failure();
    return failure.isEmpty() ? rewrite([&](QSettings& settings) {
        const ChangeNote note(file, settings.fileName());
        accessGroup(settings, group, write);
    })
                             : failure;
}

// The copy is shared with the change around this one, and all objects see each other's values in
// it; the file gets those of this object alone, for the other may still fail.
QString common_SettingsFile::changeWithin(const QString& copy, const QString& group,
                                          const Access& write) const
{
    QSettings shared(copy, m_format);
    const common_SettingsValues before(shared);
    QString prefix;
    try {
        prefix = accessGroup(shared, group, write);
    } catch (...) {
        before.applyTo(shared);
        throw;
    }
    const common_SettingsValues after(shared);
    return rewrite([&](QSettings& settings) { after.applyChangesTo(settings, before, prefix); });
}

// What fill has led to is known, so that it can be written a second time, where there is room.
QString common_SettingsFile::rewrite(const Access& fill) const
{
    QByteArray content;
    QString failure = load(content);
    if (!failure.isEmpty()) {
        return failure;
    }
    Access next = fill;
    const QStringList places = draftPlaces(QFileInfo(KEST_binfiles_real_path(m_fileName)));
    for (const QString& place : places) {
        common_SettingsDraft draft(place);
        failure = draft.begin(readable(content));
        if (!failure.isEmpty()) {
            continue;
        }
        bool isKept = true;
        draft.change(m_format, [&](QSettings& settings) {
            isKept = keepIfDamaged(settings, content);
            if (isKept) {
                next(settings);
            }
        });
        if (!isKept) {
            return QStringLiteral("it is damaged, and no copy of it can be kept");
        }
        failure = draft.finish(m_format);
        if (failure.isEmpty()) {
            return replace(draft.content());
        }
        next = [values = draft.values()](QSettings& settings) { values.applyTo(settings); };
    }
    return failure;
}

QString common_SettingsFile::replace(const QByteArray& content) const
{
    if (content.size() > common_settings::largestFile) {
        return QStringLiteral("it would become ") + limitText();
    }
    QString reason;
    repeat([&] {
        QSaveFile file(KEST_binfiles_real_path(m_fileName));
        const bool isWritten =
            file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
        const bool isReplaced = isWritten && file.commit();
        reason = isReplaced ? QString() : file.errorString();
        return isReplaced || !isWritten; // only the replacement is tried again
    });
    return reason;
}

bool common_SettingsFile::keepIfDamaged(const QSettings& settings, const QByteArray& content) const
{
    const QString kept = m_fileName + QStringLiteral(".damaged");
    if (QFileInfo::exists(kept) || !isDamaged(settings, content)) {
        return true;
    }
    if (!QFile::copy(m_fileName, kept)) {
        return false;
    }
    qWarning("The settings file %s is damaged; a copy is kept in %s.", qUtf8Printable(m_fileName),
             qUtf8Printable(kept));
    return true;
}
