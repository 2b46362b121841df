// SPDX-License-Identifier: MIT
#pragma once

#include "Desk.h"

#include <RunOutcome.h>
#include <SystemSkips.h>

#include <QByteArray>
#include <QVector>
#include <QtTest>

/// How runs can end, and what has to become of them, in the terminal and in the window alike.
struct RunEnding
{
    /// What the user does once the component is up.
    enum class Stop {
        None,
        Asked, ///< stops the run
        Forced ///< and then insists
    };

    /// What keeps the run from starting.
    enum class Obstacle {
        None,
        NoModel,
        ModelIsFolder,
        NoComponent,
        NoProgram, ///< the component is a file that the system cannot execute
        NoMachinesFile,
        NoHost ///< the machines file names none
    };

    const char* name;
    QByteArray model; ///< what the fake component does
    Stop stop;
    RunOutcome::Kind outcome;
    const char* shortReason; ///< what ended it; empty where there is nothing to say
    const char* meaning;     ///< a part of the reason, which usually ends like this
    Obstacle obstacle = Obstacle::None;

    bool isParallel() const
    {
        return obstacle == Obstacle::NoMachinesFile || obstacle == Obstacle::NoHost;
    }
};

inline const QVector<RunEnding>& runEndings()
{
    using Kind = RunOutcome::Kind;
    using Obstacle = RunEnding::Obstacle;
    using Stop = RunEnding::Stop;
    // clang-format off
    static const QVector<RunEnding> rows = {
#ifdef Q_OS_WIN
        {"all done, killed",            "dies 100 9",       Stop::None,   Kind::Fault,   "killed",        "was killed (exception 0x0000f291): another program killed it"},
        {"memory that is not there",    "dies 50 11",       Stop::None,   Kind::Fault,   "STATUS_ACCESS_VIOLATION", "it used memory that it does not have"},
        {"somebody else's request",     "dies 50 15",       Stop::None,   Kind::Stopped, "",              "somebody interrupted it, as Ctrl+C does"},
        {"the same, after tidying up",  "ends 50 143",      Stop::None,   Kind::Stopped, "",              "ended with exit code 143: somebody interrupted it"},
        {"all done, then a request",    "dies 100 15",      Stop::None,   Kind::Stopped, "",              "STATUS_CONTROL_C_EXIT"},
#else
        {"all done, signal",            "dies 100 9",       Stop::None,   Kind::Fault,   "SIGKILL",       "was ended by SIGKILL (signal 9): usually the system ran out of memory"},
        {"program not found",           "ends 50 127",      Stop::None,   Kind::Fault,   "exit code 127", "ended with exit code 127: a program or a library that it needs was not found"},
        {"program not executable",      "ends 50 126",      Stop::None,   Kind::Fault,   "exit code 126", "could not be executed"},
        {"shell's code of a signal",    "ends 50 137",      Stop::None,   Kind::Fault,   "exit code 137", "ended with exit code 137, which stands for SIGKILL: usually the system ran out of memory"},
        {"memory that is not there",    "dies 50 11",       Stop::None,   Kind::Fault,   "SIGSEGV",       "SIGSEGV (signal 11): it used memory that it does not have"},
        {"memory of a cut file",        "dies 50 7",        Stop::None,   Kind::Fault,   "SIGBUS",        "SIGBUS (signal 7): usually a disk or the shared memory is full"},
        {"time limit",                  "dies 50 24",       Stop::None,   Kind::Fault,   "SIGXCPU",       "ulimit -t"},
        {"size limit",                  "dies 50 25",       Stop::None,   Kind::Fault,   "SIGXFSZ",       "ulimit -f"},
        {"pipe without a reader",       "dies 50 13",       Stop::None,   Kind::Fault,   "SIGPIPE",       "nobody read what it wrote any more"},
        {"gives up",                    "dies 50 6",        Stop::None,   Kind::Fault,   "SIGABRT",       "an error that it could not handle"},
        {"signal without a name",       "dies 50 40",       Stop::None,   Kind::Fault,   "signal 40",     "was ended by signal 40"},
        {"somebody else's request",     "dies 50 15",       Stop::None,   Kind::Stopped, "",              "was ended by SIGTERM (signal 15): somebody asked it to end"},
        {"the same, after tidying up",  "ends 50 143",      Stop::None,   Kind::Stopped, "",              "ended with exit code 143, which stands for SIGTERM: somebody asked it to end"},
        {"interrupted",                 "dies 50 2",        Stop::None,   Kind::Stopped, "",              "SIGINT (signal 2)"},
        {"all done, then a request",    "dies 100 15",      Stop::None,   Kind::Stopped, "",              "SIGTERM"},
#endif
        {"valid",                       "ends 100 0",       Stop::None,   Kind::Valid,   "",              ""},
        {"all done, exit code",         "ends 100 3",       Stop::None,   Kind::Fault,   "exit code 3",   "ended with exit code 3"},
        {"not all done",                "ends 50 0",        Stop::None,   Kind::Fault,   "",              "ended by itself, but reported only 50 % of the run as done"},
        {"more than all done",          "ends 101 0",       Stop::None,   Kind::Fault,   "",              "reported only 0 % of the run as done"},
        {"code like a signal's number", "ends 50 15",       Stop::None,   Kind::Fault,   "exit code 15",  "ended with exit code 15"},
        {"code of no signal",           "ends 50 255",      Stop::None,   Kind::Fault,   "exit code 255", "ended with exit code 255"},
        {"stopped",                     "asked-dies 50 15", Stop::Asked,  Kind::Stopped, "",              ""},
        {"stopped, all is done",        "asked-ends 100 0", Stop::Asked,  Kind::Valid,   "",              ""},
        {"stopped, ends well",          "asked-ends 50 0",  Stop::Asked,  Kind::Stopped, "",              ""},
        {"stopped, exit code",          "asked-ends 50 3",  Stop::Asked,  Kind::Stopped, "",              ""},
        {"stopped, all done, code",     "asked-ends 100 3", Stop::Asked,  Kind::Stopped, "",              ""},
        {"stopped, crashes",            "asked-dies 50 11", Stop::Asked,  Kind::Stopped, "",              ""},
        {"stopped, all done, crashes",  "asked-dies 100 9", Stop::Asked,  Kind::Stopped, "",              ""},
        {"stopped, does not listen",    "stubborn",         Stop::Forced, Kind::Stopped, "",              ""},
        {"nothing reported",            "silent",           Stop::None,   Kind::Fault,   "",              "ended by itself, but reported only 0 % of the run as done"},
        {"no model",                    "valid",            Stop::None,   Kind::NotStarted, "",           "there is no model",                 Obstacle::NoModel},
        {"model is a folder",           "valid",            Stop::None,   Kind::NotStarted, "",           "is a folder and not a model",       Obstacle::ModelIsFolder},
        {"no component",                "valid",            Stop::None,   Kind::NotStarted, "",           "there is no component runkest",     Obstacle::NoComponent},
        {"component is no program",     "valid",            Stop::None,   Kind::NotStarted, "",           "bin/runkest",                       Obstacle::NoProgram},
        {"no machines file",            "valid",            Stop::None,   Kind::NotStarted, "",           "No machines file could be found.",  Obstacle::NoMachinesFile},
        {"machines file without hosts", "valid",            Stop::None,   Kind::NotStarted, "",           "names no host",                     Obstacle::NoHost},
    };
    // clang-format on
    return rows;
}

/// Skips a run that ends well after a request to stop, where it is killed instead.
#define SKIP_ENDING_WITHOUT_STOP_REQUESTS(ending)                                                  \
    if ((ending).stop == RunEnding::Stop::Asked && (ending).outcome == RunOutcome::Kind::Valid) {  \
        SKIP_WITHOUT_STOP_REQUESTS();                                                              \
    }

/// A row of the test for each of them that is wanted, with its index in the column "row".
template <typename Wanted>
void addRunEndings(Wanted isWanted)
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < runEndings().size(); ++row) {
        if (isWanted(runEndings().at(row))) {
            QTest::newRow(runEndings().at(row).name) << row;
        }
    }
}

inline void addRunEndings()
{
    addRunEndings([](const RunEnding& /*ending*/) { return true; });
}

/// Writes the model m.nec of the ending, and brings about what keeps it from running.
inline void prepareRunEnding(const RunEnding& ending, const Desk& desk)
{
    const QString model = desk.path("models/m.nec");
    const QString program = Processes::installed(desk.path("home/bin/runkest"));
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
