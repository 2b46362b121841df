// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

/// The version of the engine that solves models, which is a program of its own: the one that
/// KEST_NEC2C names, or nec2c in the search path.
class EngineVersion : public QObject
{
    Q_OBJECT

public:
    EngineVersion();
    ~EngineVersion() override;

    /// Starts the engine and emits found() later. Does not block.
    void start();

    /// The version as a line such as "nec2c 1.3 (/usr/bin/nec2c)", or why it is unknown.
    QString text() const { return m_text; }

    /// Starts the engine and returns text(). Blocks for two seconds at most.
    static QString ask();

Q_SIGNALS:
    /// text() is set.
    void found();

private:
    void read();
    void setText(const QString& text);

    QProcess m_process;
    QString m_program;
    QString m_text;
};
