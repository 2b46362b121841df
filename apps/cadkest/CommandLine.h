#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <SceneView.h>

#include <QSize>
#include <QString>
#include <QStringList>

namespace cad {

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Request { ShowWindow, MakePicture, TryHardware, ShowText, Refuse };

    Request request = Request::Refuse;
    QString text; ///< what to show, or why the command line is refused
    QString model;
    QString output; ///< of the picture; empty for one beside the model
    QSize size = {1280, 800};
    Direction direction = Direction::Isometric;
    bool isDark = false;

    /// The arguments include the program's name.
    static CommandLine parsed(const QStringList& arguments);

    /// Whether there is to be no window: known before anything else, since it decides which display
    /// is opened.
    static bool isNonInteractive(int argc, char* argv[]);
};

} // namespace cad

#endif
