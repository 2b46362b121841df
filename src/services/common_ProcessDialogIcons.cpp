// SPDX-License-Identifier: MIT
#include <common_ProcessDialogIcons.h>

namespace {

QStringList toList(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* const name : names) {
        list.append(QLatin1String(name));
    }
    return list;
}

} // namespace

QStringList common_ProcessDialogIcons::icons()
{
    return toList({info, warning, fault, valid, play, exclude});
}

QStringList common_ProcessDialogIcons::pictures()
{
    return toList({detailsShown, detailsHidden});
}
