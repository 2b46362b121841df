// SPDX-License-Identifier: MIT
#pragma once

#include "StandIn.h"
#include "SuiteRun.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

// A folder with the model to tune, and an engine that counts its starts and can be slow.
class OptkestRun
{
public:
    enum class Engine {
        Counted,
        Plain // as it is installed: each start takes half as long on Windows
    };

    explicit OptkestRun(Engine engine = Engine::Counted);

    QString path(const char* name) const;
    QDir folder() const { return QDir(m_folder.path()); }
    QDir temporary() const { return QDir(m_temporary.path()); }

    // The environment of the runs: it carries a mark of its own, so that no process stays unseen.
    QProcessEnvironment environment() const;
    QProcessEnvironment environmentOf(const QString& fakeEnginePart) const;

    // Runs optkest on the model to its end.
    SuiteResult run(const QString& options = QString()) const;

    // Makes the engine wait before it works, in seconds.
    void slowDown(double seconds);

    // How often the engine was started since the last question.
    int takeEngineStarts();

    // How many of this run's processes are there.
    int processCount() const;

    // The numbers of the runs whose results are kept.
    QStringList runs() const;

private:
    void setEngine(int delay);

    QTemporaryDir m_folder;
    QTemporaryDir m_temporary;
    QTemporaryDir m_engineFolder;
    StandIn m_engine;
    bool m_isEnginePlain;
    QByteArray m_mark;
};

// The tuned value that a run printed, and a notice's text by its number.
double tunedValue(const SuiteResult& result);
QString noticeOf(const SuiteResult& result, int number);
