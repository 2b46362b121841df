// SPDX-License-Identifier: MIT
#pragma once

#include <FakeServices.h>
#include <SettingsObjects.h>
#include <UnixLines.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

inline constexpr qint64 atOnce = 1000; // milliseconds

/// What the test wants to be read and written.
class ScriptedSettings : public common_settings
{
public:
    explicit ScriptedSettings(const QString& file, const QString& group = QStringLiteral("group"))
        : common_settings(file, group, QSettings::IniFormat)
    {}

    std::function<void(QSettings&)> onRead = [](QSettings&) {};
    std::function<void(QSettings&)> onWrite = [](QSettings&) {};

protected:
    void restoreDefaults() override {}
    void doReadSettings(QSettings& settings) override { onRead(settings); }
    void doWriteSettings(QSettings& settings) override { onWrite(settings); }
};

inline bool write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

inline QByteArray bytesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

/// With the line ends of Unix.
inline QByteArray contentOf(const QString& name)
{
    return unixLines(bytesOf(name));
}

inline QVariant storedValue(const QString& file, const QString& key)
{
    return QSettings(file, QSettings::IniFormat).value(key);
}

inline QString textIn(const QString& file)
{
    TextSettings settings(file);
    settings.readSettings();
    return settings.text;
}

inline void writeText(const QString& file, const QString& text)
{
    TextSettings settings(file);
    settings.text = text;
    settings.writeSettings();
}

/// Collects what Qt's log is told while it lives.
class LogCatcher
{
public:
    LogCatcher() : m_previous(qInstallMessageHandler(note)) { lines().clear(); }
    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;
    ~LogCatcher() { qInstallMessageHandler(m_previous); }

    static QStringList& lines()
    {
        static QStringList instance;
        return instance;
    }

private:
    static void note(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        lines().append(
            (type == QtWarningMsg ? QStringLiteral("warning: ") : QStringLiteral("other: ")) +
            text);
    }

    QtMessageHandler m_previous;
};

/// A settings file, a default.ini, and the folder that both are in.
class SettingsStage
{
protected:
    void setUp()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = path("kest.ini");
        m_defaults = path("defaults/default.ini");
        QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("defaults")));
        m_info = std::make_unique<FakeApplicationInfo>(m_directory->path());
        m_info->defaultSettings = path("defaults");
    }

    QString path(const char* name) const { return m_directory->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<FakeApplicationInfo> m_info;
    QString m_file;
    QString m_defaults;
};
