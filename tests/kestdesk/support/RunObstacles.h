#pragma once

#include "Desk.h"
#include "RunEndings.h"

/// Writes the model m.nec of the ending, and brings about what keeps it from running.
inline void prepareRunEnding(const RunEnding& ending, const Desk& desk)
{
    const QString model = desk.path("models/m.nec");
    const QString program = desk.path("home/bin/runkest");
    writeFile(model, ending.model);
    switch (ending.obstacle) {
    case RunEnding::Obstacle::NoModel:
        QVERIFY(QFile::remove(model));
        break;
    case RunEnding::Obstacle::ModelIsFolder:
        QVERIFY(QFile::remove(model) && QDir().mkpath(model));
        break;
    case RunEnding::Obstacle::NoComponent:
        QVERIFY(QFile::remove(program));
        break;
    case RunEnding::Obstacle::NoProgram:
        QVERIFY(QFile::remove(program));
        writeFile(program, "\x7f"
                           "ELF no program");
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
        break;
    case RunEnding::Obstacle::NoHost:
        writeFile(desk.path("user/machines.kest"), "# host:count\n");
        break;
    case RunEnding::Obstacle::None:
    case RunEnding::Obstacle::NoMachinesFile: // as on a new desk
        break;
    }
}
