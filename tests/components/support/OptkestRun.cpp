// SPDX-License-Identifier: MIT
#include "OptkestRun.h"

#include <QUuid>

OptkestRun::OptkestRun(Engine engine)
    : m_engine(m_engineFolder.path(), QStringLiteral("engine"))
    , m_isEnginePlain(engine == Engine::Plain)
    , m_mark("OPTKEST_TEST=" + QUuid::createUuid().toByteArray())
{
    copyModel(QStringLiteral("tune.nec"), m_folder.path());
    setEngine(0);
}

QString OptkestRun::path(const char* name) const
{
    return m_folder.filePath(QString::fromUtf8(name));
}

QProcessEnvironment OptkestRun::environment() const
{
    return environmentOf(QString());
}

QProcessEnvironment OptkestRun::environmentOf(const QString& fakeEnginePart) const
{
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    if (!fakeEnginePart.isEmpty()) {
        result = fakeEngine(fakeEnginePart);
    } else if (!m_isEnginePlain) {
        result.insert(QStringLiteral("KEST_NEC2C"), m_engine.program());
    }
    const int split = m_mark.indexOf('=');
    result.insert(QString::fromLatin1(m_mark.left(split)),
                  QString::fromLatin1(m_mark.mid(split + 1)));
    result.insert(QStringLiteral("TMPDIR"), m_temporary.path());
    return result;
}

SuiteResult OptkestRun::run(const QString& options) const
{
    const QStringList words = options.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return runSuite(optkestProgram(), QStringList(QStringLiteral("tune")) + words, m_folder.path(),
                    environment());
}

void OptkestRun::slowDown(double seconds)
{
    setEngine(qRound(seconds * 1000));
}

int OptkestRun::takeEngineStarts()
{
    const int count = m_engine.calls().size();
    m_engine.removeCalls();
    return count;
}

int OptkestRun::processCount() const
{
    return processesWith(m_mark).size();
}

QStringList OptkestRun::runs() const
{
    return QDir(path("tune.optkest")).entryList({QStringLiteral("run_*")}, QDir::Dirs, QDir::Name);
}

void OptkestRun::setEngine(int delay)
{
    StandIn::Plan plan;
    plan.program = QStringLiteral("nec2c");
    plan.delay = delay;
    m_engine.setPlan(plan);
}

double tunedValue(const SuiteResult& result)
{
    const QStringList variables = result.bodies(QStringLiteral("variable"));
    return variables.size() == 1 ? variables.first().section(QStringLiteral(" = "), 1).toDouble()
                                 : 0;
}

QString noticeOf(const SuiteResult& result, int number)
{
    const QString start = QStringLiteral("NOTE %1: ").arg(number);
    const QStringList notices = result.bodies(QStringLiteral("notice"));
    for (const QString& notice : notices) {
        if (notice.startsWith(start)) {
            return notice.mid(start.size());
        }
    }
    return {};
}
