// SPDX-License-Identifier: MIT
#include "common_ProcessDialogServices.h"

#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_IPixmapUtility.h>
#include <common_ProcessDialogIcons.h>
#include <common_ServiceOf.h>

#include <QIcon>
#include <QPixmap>

namespace {

// Messages about a missing service or picture name the dialog, for which support staff search.
constexpr const char* sourceFile = "src/process/common_KestProcessDialog.cpp";

bool getPixmap(QPixmap& pixmap, const char* name)
{
    return common_ServiceOf<common_IPixmapUtility>::getService("common_IPixmapUtility", sourceFile,
                                                               __LINE__)
        ->getPixmap(pixmap, QLatin1String(common_ProcessDialogIcons::pictureDirectory),
                    QLatin1String(name));
}

} // namespace

QIcon common_ProcessDialogServices::icon(const char* name)
{
    return common_ServiceOf<common_IIconUtility>::getService("common_IIconUtility", sourceFile,
                                                             __LINE__)
        ->getIcon(QLatin1String(name));
}

QIcon common_ProcessDialogServices::detailsIcon()
{
    QPixmap detailsShownArrow;
    COMMON_ASSERT_AT(getPixmap(detailsShownArrow, common_ProcessDialogIcons::detailsShown),
                     "GET_SERVICE(common_IPixmapUtility)->getPixmap(detailsShownArrow, "
                     "\"show_details_arrow\")",
                     sourceFile, __LINE__);
    QPixmap detailsHiddenArrow;
    COMMON_ASSERT_AT(getPixmap(detailsHiddenArrow, common_ProcessDialogIcons::detailsHidden),
                     "GET_SERVICE(common_IPixmapUtility)->getPixmap(detailsHiddenArrow, "
                     "\"hide_arrow\")",
                     sourceFile, __LINE__);
    QIcon arrows;
    arrows.addPixmap(detailsShownArrow, QIcon::Normal, QIcon::On);
    arrows.addPixmap(detailsHiddenArrow, QIcon::Normal, QIcon::Off);
    return arrows;
}

QString common_ProcessDialogServices::installationDirectory()
{
    return common_ServiceOf<common_IApplicationInfo>::getService("common_IApplicationInfo",
                                                                 sourceFile, __LINE__)
        ->installationDirectory();
}

bool common_ProcessDialogServices::isNonInteractive()
{
    return common_ServiceOf<common_IApplication>::getService("common_IApplication", sourceFile,
                                                             __LINE__)
        ->isNonInteractive();
}
