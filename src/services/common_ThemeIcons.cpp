// SPDX-License-Identifier: MIT
#include "common_ThemeIcons.h"

#include <common_ProcessDialogIcons.h>

#include <QApplication>
#include <QIcon>
#include <QStyle>

#include <algorithm>
#include <array>

namespace {

struct Row
{
    const char* name;
    const char* themeName; ///< in the freedesktop.org naming of icons
    QStyle::StandardPixmap fallback;
};

// clang-format off
constexpr std::array<Row, 6> rows = {{
    {common_ProcessDialogIcons::info,    "dialog-information",   QStyle::SP_MessageBoxInformation},
    {common_ProcessDialogIcons::warning, "dialog-warning",       QStyle::SP_MessageBoxWarning},
    {common_ProcessDialogIcons::fault,   "dialog-error",         QStyle::SP_MessageBoxCritical},
    {common_ProcessDialogIcons::valid,   "emblem-default",       QStyle::SP_DialogApplyButton},
    {common_ProcessDialogIcons::play,    "media-playback-start", QStyle::SP_MediaPlay},
    {common_ProcessDialogIcons::exclude, "process-stop",         QStyle::SP_BrowserStop},
}};
// clang-format on

} // namespace

QIcon common_ThemeIcons::getIcon(const QString& name)
{
    const auto row = std::find_if(rows.cbegin(), rows.cend(), [&name](const Row& candidate) {
        return name == QLatin1String(candidate.name);
    });
    if (row == rows.cend()) {
        return QIcon::fromTheme(name);
    }
    const QIcon icon = QIcon::fromTheme(QLatin1String(row->themeName));
    return icon.isNull() ? QApplication::style()->standardIcon(row->fallback) : icon;
}
