// SPDX-License-Identifier: MIT
#pragma once

#include <SettingsFolders.h>

#include <common_recent_file_settings.h>

#include <QSettings>

using RecentFiles = common_recent_file_settings;

inline QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// The same as the paths that a list of recent files has of them.
inline QStringList paths(const char* text)
{
    return words(QDir::toNativeSeparators(QString::fromUtf8(text)).toUtf8().constData());
}

/// Adds the last word first, so that the list is as the text has it.
inline void fill(RecentFiles& recent, const char* text)
{
    const QStringList names = words(text);
    for (auto name = names.crbegin(); name != names.crend(); ++name) {
        recent.addRecentFile(*name);
    }
}

/// Files that a list of recent files may name.
class RecentFileStage
{
protected:
    /// The paths of new files of these names, which blanks or semicolons separate.
    static QStringList existing(const SettingsFolders& folders, const char* names)
    {
        const QString text = QString::fromUtf8(names);
        const QChar separator = QLatin1Char(text.contains(QLatin1Char(';')) ? ';' : ' ');
        QStringList paths;
        const QStringList each = text.split(separator);
        for (const QString& name : each) {
            paths.append(QDir::toNativeSeparators(folders.path() + QLatin1Char('/') + name));
            SettingsFolders::write(paths.constLast(), "model");
        }
        return paths;
    }

    static void store(const QString& fileName, const QStringList& paths)
    {
        QSettings settings(fileName, QSettings::IniFormat);
        settings.setValue(QStringLiteral("recentFiles/fileList"), paths);
    }
};
