// SPDX-License-Identifier: MIT
#include "common_ErrorQuery.h"

#include <common_UserQuery.h>

void common_showError(const QString& title, const QString& text)
{
    common_UserQuery(title, text, common_UserQuery::Error, nullptr, QString()).display();
}
