#include "QtOptions.h"

#include <algorithm>
#include <iterator>

namespace {

struct QtOption
{
    const char* name;
    const char* valueName; ///< empty for an option without a value
    const char* meaning;   ///< empty for an option that the help does not show
};

// clang-format off
constexpr QtOption qtOptions[] = {
    {"display",            "name",     "The X display to use, in place of $DISPLAY."},
    {"platform",           "name",     "The plugin for the window system, such as xcb, wayland or offscreen."},
    {"platformpluginpath", "folder",   "Where such plugins are."},
    {"platformtheme",      "name",     "The theme of the desktop."},
    {"plugin",             "name",     "A generic plugin to load; may be given several times."},
    {"qwindowgeometry",    "geometry", "Place and size of the first window, such as 800x600+50+50."},
    {"qwindowicon",        "file",     "The icon of windows."},
    {"qwindowtitle",       "text",     "The title of the first window."},
    {"reverse",            "",         "Lay windows out from right to left."},
    {"style",              "name",     "The style of widgets, such as fusion."},
    {"stylesheet",         "file",     "A style sheet for widgets."},
    {"fontengine",         "",         ""},
    {"geometry",           "",         ""},
    {"icon",               "",         ""},
    {"session",            "",         ""},
    {"title",              "",         ""},
    {"widgetcount",        "",         ""},
};
// clang-format on

bool isNamed(const QString& name)
{
    return std::any_of(std::begin(qtOptions), std::end(qtOptions),
                       [&name](const QtOption& row) { return name == QLatin1String(row.name); });
}

} // namespace

bool QtOptions::isOption(const QString& word)
{
    const int hyphens = word.startsWith(QLatin1String("--")) ? 2 : 1;
    return word.startsWith(QLatin1Char('-')) &&
           isNamed(word.mid(hyphens).section(QLatin1Char('='), 0, 0));
}

QList<QCommandLineOption> QtOptions::all()
{
    QList<QCommandLineOption> result;
    for (const QtOption& row : qtOptions) {
        if (*row.meaning != '\0') {
            result.append(QCommandLineOption(QLatin1String(row.name), QLatin1String(row.meaning),
                                             QLatin1String(row.valueName)));
        }
    }
    return result;
}
