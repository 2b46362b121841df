#pragma once

#include <RunOutcome.h>

#include <QByteArray>
#include <QVector>
#include <QtTest>

/// How runs can end, and what has to become of them, in the terminal and in the window alike.
struct RunEnding
{
    const char* name;
    QByteArray model; ///< what the fake component does
    bool isStopped;   ///< by the user, once it is up
    RunOutcome::Kind outcome;
    const char* shortReason; ///< what ended it; empty where nothing is to be told
    const char* meaning;     ///< a part of the reason, which usually ends like this
};

inline const QVector<RunEnding>& runEndings()
{
    using Kind = RunOutcome::Kind;
    // clang-format off
    static const QVector<RunEnding> rows = {
        {"valid",                       "ends 100 0",       false, Kind::Valid,   "",              ""},
        {"all done, exit code",         "ends 100 3",       false, Kind::Fault,   "exit code 3",   "ended with exit code 3"},
        {"all done, signal",            "dies 100 9",       false, Kind::Fault,   "SIGKILL",       "was ended by SIGKILL (signal 9): usually the system ran out of memory"},
        {"not all done",                "ends 50 0",        false, Kind::Fault,   "",              "ended by itself, but reported only 50 % of the run as done"},
        {"more than all done",          "ends 101 0",       false, Kind::Fault,   "",              "reported only 0 % of the run as done"},
        {"program not found",           "ends 50 127",      false, Kind::Fault,   "exit code 127", "ended with exit code 127: a program or a library that it needs was not found"},
        {"program not executable",      "ends 50 126",      false, Kind::Fault,   "exit code 126", "could not be executed"},
        {"shell's code of a signal",    "ends 50 137",      false, Kind::Fault,   "exit code 137", "ended with exit code 137, which stands for SIGKILL: usually the system ran out of memory"},
        {"code like a signal's number", "ends 50 15",       false, Kind::Fault,   "exit code 15",  "ended with exit code 15"},
        {"code of no signal",           "ends 50 255",      false, Kind::Fault,   "exit code 255", "ended with exit code 255"},
        {"memory that is not there",    "dies 50 11",       false, Kind::Fault,   "SIGSEGV",       "SIGSEGV (signal 11): it used memory that it does not have"},
        {"memory of a cut file",        "dies 50 7",        false, Kind::Fault,   "SIGBUS",        "SIGBUS (signal 7): usually a disk or the shared memory is full"},
        {"time limit",                  "dies 50 24",       false, Kind::Fault,   "SIGXCPU",       "ulimit -t"},
        {"size limit",                  "dies 50 25",       false, Kind::Fault,   "SIGXFSZ",       "ulimit -f"},
        {"pipe without a reader",       "dies 50 13",       false, Kind::Fault,   "SIGPIPE",       "nobody read what it wrote any more"},
        {"gives up",                    "dies 50 6",        false, Kind::Fault,   "SIGABRT",       "an error that it could not handle"},
        {"signal without a name",       "dies 50 40",       false, Kind::Fault,   "signal 40",     "was ended by signal 40"},
        {"somebody else's request",     "dies 50 15",       false, Kind::Stopped, "",              "was ended by SIGTERM (signal 15): somebody asked it to end"},
        {"the same, after tidying up",  "ends 50 143",      false, Kind::Stopped, "",              "ended with exit code 143, which stands for SIGTERM: somebody asked it to end"},
        {"interrupted",                 "dies 50 2",        false, Kind::Stopped, "",              "SIGINT (signal 2)"},
        {"all done, then a request",    "dies 100 15",      false, Kind::Stopped, "",              "SIGTERM"},
        {"stopped",                     "asked-dies 50 15", true,  Kind::Stopped, "",              ""},
        {"stopped, all is done",        "asked-ends 100 0", true,  Kind::Valid,   "",              ""},
        {"stopped, ends well",          "asked-ends 50 0",  true,  Kind::Stopped, "",              ""},
        {"stopped, exit code",          "asked-ends 50 3",  true,  Kind::Stopped, "",              ""},
        {"stopped, all done, code",     "asked-ends 100 3", true,  Kind::Stopped, "",              ""},
        {"stopped, crashes",            "asked-dies 50 11", true,  Kind::Stopped, "",              ""},
        {"stopped, all done, crashes",  "asked-dies 100 9", true,  Kind::Stopped, "",              ""},
    };
    // clang-format on
    return rows;
}

/// A row of the test for each of them, with its index in the column "row".
inline void addRunEndings()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < runEndings().size(); ++row) {
        QTest::newRow(runEndings().at(row).name) << row;
    }
}
