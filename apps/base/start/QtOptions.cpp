// SPDX-License-Identifier: MIT
#include "QtOptions.h"

#include <QCoreApplication>

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
    {"display",            QT_TRANSLATE_NOOP("QtOptions", "name"),     QT_TRANSLATE_NOOP("QtOptions", "The X display to use, in place of $DISPLAY.")},
    {"platform",           QT_TRANSLATE_NOOP("QtOptions", "name"),     QT_TRANSLATE_NOOP("QtOptions", "The plugin for the window system, such as xcb, wayland or offscreen.")},
    {"platformpluginpath", QT_TRANSLATE_NOOP("QtOptions", "folder"),   QT_TRANSLATE_NOOP("QtOptions", "Where such plugins are.")},
    {"platformtheme",      QT_TRANSLATE_NOOP("QtOptions", "name"),     QT_TRANSLATE_NOOP("QtOptions", "The theme of the desktop.")},
    {"plugin",             QT_TRANSLATE_NOOP("QtOptions", "name"),     QT_TRANSLATE_NOOP("QtOptions", "A generic plugin to load; may be given several times.")},
    {"qwindowgeometry",    QT_TRANSLATE_NOOP("QtOptions", "geometry"), QT_TRANSLATE_NOOP("QtOptions", "Place and size of the first window, such as 800x600+50+50.")},
    {"qwindowicon",        QT_TRANSLATE_NOOP("QtOptions", "file"),     QT_TRANSLATE_NOOP("QtOptions", "The icon of windows.")},
    {"qwindowtitle",       QT_TRANSLATE_NOOP("QtOptions", "text"),     QT_TRANSLATE_NOOP("QtOptions", "The title of the first window.")},
    {"reverse",            "",         QT_TRANSLATE_NOOP("QtOptions", "Lay windows out from right to left.")},
    {"style",              QT_TRANSLATE_NOOP("QtOptions", "name"),     QT_TRANSLATE_NOOP("QtOptions", "The style of widgets, such as fusion.")},
    {"stylesheet",         QT_TRANSLATE_NOOP("QtOptions", "file"),     QT_TRANSLATE_NOOP("QtOptions", "A style sheet for widgets.")},
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
            result.append(QCommandLineOption(
                QLatin1String(row.name), QCoreApplication::translate("QtOptions", row.meaning),
                QCoreApplication::translate("QtOptions", row.valueName)));
        }
    }
    return result;
}
