#pragma once

#include <QString>

#include <optional>

/// What a user can do at once about a problem that a message or an outcome tells of.
namespace ProblemCures {

enum class Action {
    OpenCard,       ///< the line of the model that the message names, in the editor
    UseThisMachine, ///< a machines file with this machine
    EditMachines,   ///< which hosts are in the machines file
    InstallEngine,  ///< shows how
    EditOptions     ///< the launch options
};

/// A row of the table.
struct Cure
{
    const char* pattern; ///< regular expression; what the message contains
    Action action;
    const char* button;
    const char* hint;
};

/// The first row that fits; null when nothing can be done from here.
const Cure* find(const QString& message);

/// Where the message is about a line of the model: the line from 1 on, and the file without its
/// folder, which may be empty.
struct Line
{
    QString file;
    int line = 0;
};
std::optional<Line> lineOf(const QString& message);

} // namespace ProblemCures
