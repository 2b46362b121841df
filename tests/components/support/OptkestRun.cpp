// SPDX-License-Identifier: MIT
#include "OptkestRun.h"

#include <QFile>
#include <QUuid>

OptkestRun::OptkestRun() : m_mark("OPTKEST_TEST=" + QUuid::createUuid().toByteArray())
{
    copyModel(QStringLiteral("tune.nec"), m_folder.path());
    writeEngine("exec nec2c \"$@\"");
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
    QProcessEnvironment result = fakeEnginePart.isEmpty()
                                     ? environmentWith(QStringLiteral("KEST_NEC2C"),
                                                       m_engine.filePath(QStringLiteral("engine")))
                                     : fakeEngine(fakeEnginePart);
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
    writeEngine("sleep " + QByteArray::number(seconds) + "; exec nec2c \"$@\"");
}

int OptkestRun::takeEngineStarts()
{
    const QString path = m_engine.filePath(QStringLiteral("starts"));
    const int count = readFile(path).count('\n');
    QFile::remove(path);
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

void OptkestRun::writeEngine(const QByteArray& work)
{
    const QByteArray starts = m_engine.filePath(QStringLiteral("starts")).toUtf8();
    const QString path = writeFile(m_engine.path(), QStringLiteral("engine"),
                                   "#!/bin/sh\necho start >> '" + starts + "'\n" + work + "\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
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
