// SPDX-License-Identifier: MIT
#include "TestPrograms.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>

TestPrograms TestPrograms::read(const QString& path)
{
    TestPrograms programs;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return programs;
    }
    while (!file.atEnd()) {
        const QStringList words =
            QString::fromUtf8(file.readLine()).trimmed().split(QLatin1Char('\t'));
        if (words.size() > 3) {
            programs.m_programs.append(
                {words.at(0), words.at(1).toInt(), words.at(2), words.mid(3)});
        }
    }
    return programs;
}

const TestProgram* TestPrograms::find(const QString& name) const
{
    const auto found = std::find_if(m_programs.cbegin(), m_programs.cend(),
                                    [&name](const TestProgram& each) { return each.name == name; });
    return found == m_programs.cend() ? nullptr : &*found;
}

QStringList functionsOf(const TestProgram& program)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(program.executable(), {QStringLiteral("-functions")});
    if (!process.waitForFinished(program.timeLimit * 1000)) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    QStringList functions = QString::fromUtf8(process.readAllStandardOutput())
                                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString& function : functions) {
        function = function.section(QLatin1Char('('), 0, 0);
    }
    return functions;
}
