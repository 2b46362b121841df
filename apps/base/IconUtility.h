#pragma once

#include <common_IIconUtility.h>

#include <QSet>
#include <QString>

/// The suite's icons.
class IconUtility : public common_IIconUtility
{
public:
    IconUtility();

    /// A name that is not known is told of once in Qt's log. Without a window system there are no
    /// icons.
    QIcon getIcon(const QString& name) override;

private:
    QSet<QString> m_missing;
};
