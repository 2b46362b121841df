// SPDX-License-Identifier: MIT
#pragma once

#include "MarkedRuns.h"
#include "SuiteRun.h"

#include <QProcess>

// A model of twelve frequencies in a folder of its own, and runs of it that are broken and resumed.
class BrokenSweep : public MarkedRuns
{
public:
    static constexpr int headerLines = 5; // of the file of partial results
    static constexpr int frequencies = 12;

    // Writes the model.
    BrokenSweep();

    static QByteArray model();

    SuiteResult run(const QStringList& options, const QProcessEnvironment& environment) const;
    SuiteResult resume(const QStringList& options = QStringList()) const;
    void start(QProcess& process, const QStringList& options,
               const QProcessEnvironment& environment) const;

    // The file of partial results, and its rows.
    QByteArray partial() const;
    int keptRows() const;

    // True when that many rows are there within the patience of a loaded machine.
    bool waitForRows(int least) const;

    // Leaves the file of a sweep that was killed in its middle; false when there is none.
    bool keepSome();

    // An environment whose engine is this shell script.
    QProcessEnvironment scriptEnvironment(const QByteArray& script) const;

    // Empty when the results are those of an unbroken run and no partial ones are left; otherwise
    // what is different.
    QString difference() const;
};
