// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>

/// The options that Qt's application objects remove from the command line of a program with
/// windows.
namespace QtOptions {

/// Whether a word of a command line is one of them, with or without a value behind "=".
bool isOption(const QString& word);

/// The options that are useful for users, for the help.
QList<QCommandLineOption> all();

} // namespace QtOptions
