// SPDX-License-Identifier: MIT
#include "common_SettingsDraft.h"

#include "common_IniText.h"

#include <QFile>
#include <QFileInfo>

common_SettingsDraft::common_SettingsDraft(const QString& folder)
    : m_folder(folder + QStringLiteral("-XXXXXX")), m_place(QFileInfo(folder).absolutePath())
{}

QString common_SettingsDraft::fileName() const
{
    return m_folder.filePath(m_name);
}

QString common_SettingsDraft::begin(const QByteArray& content)
{
    if (!m_folder.isValid()) {
        return QStringLiteral("no temporary folder can be made in %1 (%2)")
            .arg(m_place, m_folder.errorString());
    }
    QFile file(fileName());
    const bool isFilled =
        file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
    return isFilled ? QString() : noRoom();
}

void common_SettingsDraft::change(QSettings::Format format,
                                  const std::function<void(QSettings&)>& change)
{
    QSettings settings(fileName(), format);
    change(settings);
    m_values = common_SettingsValues(settings);
}

// From some damaged files QSettings writes other values than it has read: it writes keys that it
// cannot look up under the names of others, and keeps the encoding of a byte order mark without the
// mark. Into an empty file it writes all values correctly.
QString common_SettingsDraft::finish(QSettings::Format format)
{
    if (readBack(format)) {
        return QString();
    }
    m_name = QStringLiteral("anew");
    {
        QSettings settings(fileName(), format);
        m_values.applyTo(settings);
    }
    return readBack(format) ? QString() : noRoom();
}

bool common_SettingsDraft::readBack(QSettings::Format format)
{
    const QString name = fileName() + QStringLiteral(".written");
    QFile written(name);
    if (!QFile::rename(fileName(), name) || !written.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray content = written.readAll();
    m_content = common_IniText::escaped(content);
    if (m_content != content) {
        return isSavedAs(name + QStringLiteral(".escaped"), format);
    }
    return m_values.areSame(common_SettingsValues(QSettings(name, format)));
}

bool common_SettingsDraft::isSavedAs(const QString& name, QSettings::Format format) const
{
    QFile file(name);
    const bool isFilled = file.open(QIODevice::WriteOnly) &&
                          file.write(m_content) == m_content.size() && file.flush();
    return isFilled && m_values.areSame(common_SettingsValues(QSettings(name, format)));
}

QString common_SettingsDraft::noRoom() const
{
    return QStringLiteral("there is no room in %1").arg(m_place);
}
