#include "common_SettingsFile.h"

#include <KEST_binfiles.h>
#include <MarkedFolders.h>

#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMap>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QThread>
#include <QVariant>

#include <algorithm>
#include <string>

namespace {

// What a window may stand still for, and a small part of the time that a write takes.
constexpr int longestWait = 900; // milliseconds

// Whoever seems to write for longer has left its guard behind, perhaps on another machine.
constexpr int longestWrite = 5000; // milliseconds

// Nobody queues, so whoever has waited for long tries more often than those who came later.
unsigned long waitBetweenTries(qint64 waited)
{
    return static_cast<unsigned long>(20000 / (waited + 10)); // microseconds, from milliseconds
}

using Values = QMap<QString, QVariant>;

Values valuesOf(const QSettings& settings)
{
    Values values;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        values.insert(key, settings.value(key));
    }
    return values;
}

QByteArray streamed(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

QStringList texts(const QVariant& value)
{
    if (!value.isValid()) {
        return QStringList();
    }
    return value.canConvert<QStringList>() ? value.toStringList() : QStringList(value.toString());
}

// Types change on the way through a file: a number becomes a text, an empty list becomes nothing.
bool isSame(const QVariant& expected, const QVariant& read)
{
    return expected == read || streamed(expected) == streamed(read) ||
           texts(expected) == texts(read);
}

bool areSame(const Values& expected, const Values& read)
{
    return expected.size() == read.size() &&
           std::equal(expected.keyBegin(), expected.keyEnd(), read.keyBegin()) &&
           std::equal(expected.cbegin(), expected.cend(), read.cbegin(), isSame);
}

bool isNothing(const QVariant& value)
{
    return !value.isValid() || value.userType() == QMetaType::QVariant;
}

// QSettings tells of lines that it cannot read as soon as it had to look at them all, but not of
// values: of those that it cannot read nothing comes, as of those that are meant to be nothing.
bool isDamaged(const QSettings& settings)
{
    const Values values = valuesOf(settings);
    const auto nothing = std::count_if(values.cbegin(), values.cend(), isNothing);
    QFile file(settings.fileName());
    return settings.status() == QSettings::FormatError ||
           (nothing > 0 && file.open(QIODevice::ReadOnly) &&
            file.readAll().count("@Invalid()") < nothing);
}

/// Keeps other writers of a file away for as long as it lives.
class WriteGuard
{
public:
    explicit WriteGuard(const QString& file)
        : m_path((file + QStringLiteral(".write")).toStdWString())
    {
        QElapsedTimer waiting;
        waiting.start();
        while (!tryLock() && m_status == KEST_BINFILES_LOCKED_BY_OTHER_PROCESS &&
               !waiting.hasExpired(longestWait)) {
            KEST_binfiles_remove_left_lock(m_path.c_str(), longestWrite);
            QThread::usleep(waitBetweenTries(waiting.elapsed()));
        }
    }

    WriteGuard(const WriteGuard&) = delete;
    WriteGuard& operator=(const WriteGuard&) = delete;

    ~WriteGuard()
    {
        if (m_handle != 0) {
            KEST_binfiles_remove_lock(m_path.c_str(), m_handle);
        }
    }

    /// Why it keeps nobody away; empty when it does.
    QString failure() const
    {
        switch (m_status) {
        case KEST_BINFILES_LOCK_TAKEN:
            return QString();
        case KEST_BINFILES_LOCK_NOT_MADE:
            return QStringLiteral("its folder cannot be written");
        default:
            return QStringLiteral("somebody else is writing it");
        }
    }

private:
    bool tryLock()
    {
        m_status = KEST_binfiles_set_lock_hard(m_path.c_str(), 0, &m_handle);
        return m_status == KEST_BINFILES_LOCK_TAKEN;
    }

    const std::wstring m_path;
    uint64_t m_handle = 0;
    int m_status = KEST_BINFILES_LOCK_NOT_MADE;
};

} // namespace

common_SettingsFile::common_SettingsFile(const QString& fileName, QSettings::Format format)
    : m_fileName(fileName), m_format(format)
{}

QString common_SettingsFile::change(const std::function<void(QSettings&)>& change) const
{
    const QFileInfo file(m_fileName);
    if (!QDir().mkpath(file.absolutePath())) {
        return QStringLiteral("its folder cannot be made");
    }
    // Whoever reaches the file by a link writes the same file.
    const WriteGuard guard(file.exists() ? file.canonicalFilePath() : file.absoluteFilePath());
    const QString failure = guard.failure();
    return failure.isEmpty() ? changeUnderGuard(change) : failure;
}

// The change is made to a copy and read back, because QSettings does not notice a short write.
// Under a second name, because QSettings remembers what it wrote under the first.
QString common_SettingsFile::changeUnderGuard(const std::function<void(QSettings&)>& change) const
{
    const QTemporaryDir folder(QDir::tempPath() + QLatin1Char('/') +
                               MarkedFolders::marked(QStringLiteral("kest-settings")) +
                               QStringLiteral("-XXXXXX"));
    const QString copy = folder.filePath(QStringLiteral("settings"));
    const QString written = folder.filePath(QStringLiteral("written"));
    if (QFile::exists(m_fileName) && !QFile::copy(m_fileName, copy)) {
        return QStringLiteral("it cannot be read");
    }
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    Values expected;
    {
        QSettings settings(copy, m_format);
        keepIfDamaged(settings);
        change(settings);
        expected = valuesOf(settings);
    }
    QFile file(written);
    if (!QFile::rename(copy, written) || !file.open(QIODevice::ReadOnly) ||
        !areSame(expected, valuesOf(QSettings(written, m_format)))) {
        return QStringLiteral("there is no room in %1").arg(folder.path());
    }
    return replace(file.readAll());
}

QString common_SettingsFile::replace(const QByteArray& content) const
{
    QSaveFile file(m_fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() ||
        !file.commit()) {
        return file.errorString();
    }
    return QString();
}

void common_SettingsFile::keepIfDamaged(const QSettings& content) const
{
    const QString kept = m_fileName + QStringLiteral(".damaged");
    if (!QFile::exists(kept) && isDamaged(content) && QFile::copy(m_fileName, kept)) {
        qWarning("The settings file %s is damaged; a copy is kept in %s.",
                 qUtf8Printable(m_fileName), qUtf8Printable(kept));
    }
}
