// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The actions that a window offers for a problem in a message or an outcome.
namespace ProblemCures {

enum class Action {
    OpenCard,       ///< open the line of the model that the message names in the editor
    UseThisMachine, ///< write a machines file with this machine
    LeaveHostOut,   ///< run again without the host that the message names
    EditMachines,   ///< edit the hosts of the machines file
    InstallEngine,  ///< show how to install the engine
    EditOptions     ///< edit the launch options
};

/// A row of the table.
struct Cure
{
    const char* pattern; ///< regular expression that matches a part of the message
    Action action;
    const char* button; ///< shown() translates it, and the hint
    const char* hint;
};

/// A text of a row, in the user's language.
QString shown(const char* text);

/// The first row that matches; null if there is none.
const Cure* find(const QString& message);

/// The place in the model that a message names: the line, counted from 1, and the file name without
/// folder, which may be empty.
struct Line
{
    QString file;
    int line = 0;
};
std::optional<Line> lineOf(const QString& message);

/// The host that a message is about; empty for none.
QString hostOf(const QString& message);

} // namespace ProblemCures
