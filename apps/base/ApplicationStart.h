#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QCoreApplication;

namespace suite {
class ProgramArguments;
}

/// The beginning of an application's main function: an application object that fits what it is
/// asked for.
namespace ApplicationStart {

/// What the application needs around it.
enum class Surroundings {
    Terminal, ///< nothing but its standard streams
    Picture,  ///< windows that nobody sees
    Window,   ///< a display
};

/// For a command line that the application cannot follow. Qt's own options are mistakes until an
/// application object for windows has taken them out; all others are told of in the terminal.
Surroundings surroundingsOfMistake(const QStringList& words);

/// Why the application cannot start in these surroundings; empty when it can. The alternative is
/// what the user can do where there is no display.
QString problem(Surroundings surroundings, const QString& alternative);

/// The application object. There must be no problem: Qt would end the program, or write into the
/// root folder.
std::unique_ptr<QCoreApplication> make(Surroundings surroundings,
                                       suite::ProgramArguments& arguments);

} // namespace ApplicationStart
