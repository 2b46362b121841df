// SPDX-License-Identifier: MIT
#pragma once

#include <Decks.h>

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>

// What a program of the sample installation did.
struct SuiteResult
{
    int exitCode = -1;
    bool isCrash = false;
    QStringList lines; // of standard output
    QByteArray errorOutput;

    // The bodies of all lines with a marker, given without its "-*-".
    QStringList bodies(const QString& marker) const;

    // True when a line holds this text.
    bool hasText(const QString& text) const;
};

// Paths of what is tested.
QString prekestProgram();
QString runkestProgram();
QString optkestProgram();
QString fakeEngineProgram();
QString suiteHome();

// The environment of this test, with one more variable.
QProcessEnvironment environmentWith(const QString& name, const QString& value);

// The environment that makes the fake engine play a part.
QProcessEnvironment fakeEngine(const QString& part);

// Runs a program to its end. Ends the test run's patience after a minute.
SuiteResult
runSuite(const QString& program, const QStringList& arguments, const QString& folder,
         const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

// Writes a file; the path comes back, empty when it could not be written.
QString writeFile(const QString& folder, const QString& name, const QByteArray& content);
QByteArray readFile(const QString& path);

// A copy of one of the installation's models.
QString copyModel(const QString& name, const QString& folder);

// Process ids of all processes whose environment holds this NAME=VALUE.
QStringList processesWith(const QByteArray& assignment);
