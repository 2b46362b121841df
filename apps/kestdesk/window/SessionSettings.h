// SPDX-License-Identifier: MIT
#pragma once

#include <common_settings.h>

#include <QString>

/// The state of the window when it was closed: the group "session" of the application's settings
/// file.
class SessionSettings : public common_settings
{
public:
    explicit SessionSettings(const QString& fileName);

    QString model() const { return m_model; }
    void setModel(const QString& model) { m_model = model; }

    QString component() const { return m_component; }
    void setComponent(const QString& name) { m_component = name; }

protected:
    void restoreDefaults() override;
    void doReadSettings(QSettings& settings) override;
    void doWriteSettings(QSettings& settings) override;

private:
    QString m_model;
    QString m_component;
};
