// SPDX-License-Identifier: MIT
#include "EngineProgram.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace suite {

EngineProgram::EngineProgram()
{
    const QString chosen = qEnvironmentVariable("KEST_NEC2C");
    const QString name = chosen.isEmpty() ? QStringLiteral("nec2c") : chosen;
    QString found = QStandardPaths::findExecutable(name);
    if (found.isEmpty() && chosen.isEmpty()) { // an installation may bring it along
        found = QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    }
    if (!found.isEmpty()) {
        m_path = QFileInfo(found).absoluteFilePath();
    } else if (chosen.isEmpty()) {
        m_error =
            QStringLiteral("the engine 'nec2c' is not in the search path, install the package "
                           "nec2c or name another program in KEST_NEC2C");
    } else {
        m_error = QStringLiteral("the engine '%1', named in KEST_NEC2C, is no program, correct or "
                                 "unset the variable")
                      .arg(chosen);
    }
}

} // namespace suite
