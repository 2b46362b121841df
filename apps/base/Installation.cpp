#include "Installation.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

QString Installation::directory()
{
    const QString home = qEnvironmentVariable("KEST_HOME");
    return home.isEmpty() ? QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                            QLatin1String("/" KEST_SUITE_FROM_BIN))
                          : QDir(home).absolutePath();
}

QString Installation::helpDirectory()
{
    return directory() + QStringLiteral("/help");
}

QString Installation::program(const QString& component)
{
    return QStandardPaths::findExecutable(component, {directory() + QLatin1String("/bin")});
}
