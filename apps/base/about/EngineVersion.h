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

    /// Asks the engine, and emits found() later. Does not wait.
    void start();

    /// The answer as a line such as "nec2c 1.3 (/usr/bin/nec2c)", or why there is none.
    QString text() const { return m_text; }

    /// Waits for the answer, two seconds at most.
    static QString ask();

Q_SIGNALS:
    /// text() is known now.
    void found();

private:
    void read();
    void setText(const QString& text);

    QProcess m_process;
    QString m_program;
    QString m_text;
};
