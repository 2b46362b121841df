// SPDX-License-Identifier: MIT
#include "MarkedRuns.h"

#include "StandIn.h"
#include "SuiteRun.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>
#include <QUuid>

#include <functional>

namespace {

constexpr int patience = 30000; // ms
constexpr unsigned long pause = 5;

bool waitUntil(const std::function<bool()>& isTrue)
{
    const QDeadlineTimer deadline(patience);
    while (!isTrue()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(pause);
    }
    return true;
}

QStringList allEntries(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

MarkedRuns::MarkedRuns() : m_mark("MARKED_RUNS=" + QUuid::createUuid().toByteArray())
{}

QProcessEnvironment MarkedRuns::environment() const
{
    const int split = m_mark.indexOf('=');
    QProcessEnvironment result = environmentWith(QString::fromLatin1(m_mark.left(split)),
                                                 QString::fromLatin1(m_mark.mid(split + 1)));
    result.insert(QStringLiteral("TMPDIR"), m_temporary.path());
    return result;
}

QProcessEnvironment MarkedRuns::slowEnvironment(double seconds)
{
    const StandIn engine(m_engines.path(), QStringLiteral("slow"));
    StandIn::Plan plan;
    plan.program = QStringLiteral("nec2c");
    plan.delay = qRound(seconds * 1000);
    engine.setPlan(plan);
    QProcessEnvironment result = environment();
    result.insert(QStringLiteral("KEST_NEC2C"), engine.program());
    return result;
}

QProcessEnvironment MarkedRuns::fakeEnvironment(const QString& part) const
{
    QProcessEnvironment result = environment();
    result.insert(QStringLiteral("KEST_NEC2C"), fakeEngineProgram());
    result.insert(QStringLiteral("FAKE_ENGINE"), part);
    return result;
}

QStringList MarkedRuns::processes() const
{
    return processesWith(m_mark);
}

int MarkedRuns::processCount() const
{
    return processes().size();
}

bool MarkedRuns::waitForProcesses(int least) const
{
    return waitUntil([this, least] { return processCount() >= least; });
}

bool MarkedRuns::waitForEnd() const
{
    return waitUntil([this] { return processCount() == 0; });
}

QStringList MarkedRuns::entries() const
{
    return allEntries(m_folder.path());
}

QStringList MarkedRuns::temporaryEntries() const
{
    return allEntries(m_temporary.path());
}

QStringList MarkedRuns::left() const
{
    return processes() + temporaryEntries();
}

bool MarkedRuns::waitUntilNothingIsLeft() const
{
    return waitUntil([this] { return left().isEmpty(); });
}
