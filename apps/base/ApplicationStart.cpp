#include "ApplicationStart.h"

#include "Display.h"

#include <ProgramArguments.h>
#include <TemporaryFolder.h>

#include <QApplication>

#include <algorithm>
#include <iterator>

namespace {

constexpr const char* qtOptions[] = {
    "display",       "fontengine",   "geometry",    "icon",    "platform",   "platformpluginpath",
    "platformtheme", "plugin",       "qwindowicon", "reverse", "session",    "qwindowgeometry",
    "style",         "qwindowtitle", "stylesheet",  "title",   "widgetcount"};

bool isQtOption(const QString& word)
{
    const QString name =
        word.mid(word.startsWith(QLatin1String("--")) ? 2 : 1).section(QLatin1Char('='), 0, 0);
    return word.startsWith(QLatin1Char('-')) &&
           std::any_of(std::begin(qtOptions), std::end(qtOptions),
                       [&name](const char* option) { return name == QLatin1String(option); });
}

void setUpPixels()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

} // namespace

ApplicationStart::Surroundings ApplicationStart::surroundingsOfMistake(const QStringList& words)
{
    return std::any_of(words.begin(), words.end(), isQtOption) ? Surroundings::Window
                                                               : Surroundings::Terminal;
}

// For windows Qt keeps files beside the temporary ones.
QString ApplicationStart::problem(Surroundings surroundings, const QString& alternative)
{
    if (surroundings == Surroundings::Window && !Display::exists()) {
        return QStringLiteral("there is no display for the window; ") + alternative;
    }
    return surroundings == Surroundings::Terminal ? QString()
                                                  : suite::TemporaryFolder::placeProblem();
}

std::unique_ptr<QCoreApplication> ApplicationStart::make(Surroundings surroundings,
                                                         suite::ProgramArguments& arguments)
{
    if (surroundings == Surroundings::Terminal) {
        return std::make_unique<QCoreApplication>(arguments.count(), arguments.values());
    }
    if (surroundings == Surroundings::Picture) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else {
        setUpPixels(); // those of a picture are what was asked for
    }
    return std::make_unique<QApplication>(arguments.count(), arguments.values());
}
