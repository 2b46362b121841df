// SPDX-License-Identifier: MIT
#include "SuiteFolders.h"

#include <QCoreApplication>
#include <QFile>

QString SuiteFolders::problem()
{
    for (const char* const variable : {"KEST_HOME", "KEST_USER_HOME"}) {
        const QByteArray name = qgetenv(variable);
        if (QFile::encodeName(QFile::decodeName(name)) != name) {
            return QCoreApplication::translate(
                       "SuiteFolders",
                       "%1 names a folder with characters that cannot be read; the name "
                       "must be text in the encoding of this session, such as UTF-8")
                .arg(QLatin1String(variable));
        }
    }
    return QString();
}
