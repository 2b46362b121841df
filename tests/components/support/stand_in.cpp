// SPDX-License-Identifier: MIT
// Stands before another program: records how it was called, and starts that program in its place.
// What it does is in a file beside it, of its own name with ".json" added: see StandIn.
#include "runInPlace.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

#include <cstdio>

namespace {

QString textOf(const QJsonObject& plan, const char* key)
{
    return plan.value(QLatin1String(key)).toString();
}

// Each call has a file, which is made in one step: calls at the same moment do not meet, and one
// that is killed leaves nothing that another one waits for.
bool record(const QString& path, const QByteArray& line)
{
    constexpr int most = 9999;
    for (int number = 1; number <= most; ++number) {
        QFile file(path + QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0')));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            return file.write(line) == line.size();
        }
        if (!file.exists()) {
            return false;
        }
    }
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    constexpr int unusable = 99;
    const QCoreApplication application(argc, argv);
    const QString self = QCoreApplication::applicationFilePath();
    QFile file(self.endsWith(QLatin1String(".exe")) ? self.chopped(4) + QStringLiteral(".json")
                                                    : self + QStringLiteral(".json"));
    if (!file.open(QIODevice::ReadOnly)) {
        return unusable;
    }
    const QJsonObject plan = QJsonDocument::fromJson(file.readAll()).object();
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString line = arguments.join(QLatin1Char('|'));
    if (!record(textOf(plan, "record"), line.toUtf8())) {
        return unusable;
    }
    QThread::msleep(static_cast<unsigned long>(plan.value(QLatin1String("delay")).toInt()));
    const QString failing = textOf(plan, "failsWith");
    if (!failing.isEmpty() && line.contains(failing)) {
        std::puts(textOf(plan, "error").toUtf8().constData());
        return 1;
    }
    const int passedOn = plan.value(QLatin1String("passedOn")).toInt(arguments.size());
    return runInPlace(textOf(plan, "program"), arguments.mid(0, passedOn));
}
