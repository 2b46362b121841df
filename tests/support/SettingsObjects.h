// SPDX-License-Identifier: MIT
#pragma once

#include <common_settings.h>

#include <QString>
#include <QVariant>

/// One number under one key of the group "counts".
class CountSettings : public common_settings
{
public:
    CountSettings(const QString& file, QString key)
        : common_settings(file, QStringLiteral("counts"), QSettings::IniFormat)
        , m_key(std::move(key))
    {}

    int count = 0;

protected:
    void restoreDefaults() override { count = 0; }
    void doReadSettings(QSettings& settings) override { count = settings.value(m_key, 0).toInt(); }
    void doWriteSettings(QSettings& settings) override { settings.setValue(m_key, count); }

private:
    QString m_key;
};

/// The key "text" of a group; "default" is its default.
class TextSettings : public common_settings
{
public:
    explicit TextSettings(const QString& file, const QString& group = QStringLiteral("texts"))
        : common_settings(file, group, QSettings::IniFormat)
    {}

    QString text = defaultText();

    static QString defaultText() { return QStringLiteral("default"); }

protected:
    void restoreDefaults() override { text = defaultText(); }
    void doReadSettings(QSettings& settings) override
    {
        text = settings.value(QStringLiteral("text"), defaultText()).toString();
    }
    void doWriteSettings(QSettings& settings) override
    {
        settings.setValue(QStringLiteral("text"), text);
    }
};
