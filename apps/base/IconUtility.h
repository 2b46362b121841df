// SPDX-License-Identifier: MIT
#pragma once

#include <common_IIconUtility.h>

#include <QSet>
#include <QString>

/// The suite's icons.
class IconUtility : public common_IIconUtility
{
public:
    IconUtility();

    /// An unknown name is logged once. Without a window system there are no
    /// icons.
    QIcon getIcon(const QString& name) override;

private:
    QSet<QString> m_missing;
};
