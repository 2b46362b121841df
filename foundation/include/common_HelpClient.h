// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

class QString;
class QWidget;

/// The service that shows help.
class KEST_FOUNDATION_EXPORT common_HelpClient
{
public:
    virtual ~common_HelpClient();

    /// Shows the page when the user asks for help in the widget.
    virtual void registerPage(QWidget* widget, const QString& page) = 0;

protected:
    common_HelpClient() = default;
    common_HelpClient(const common_HelpClient&) = default;
    common_HelpClient& operator=(const common_HelpClient&) = default;
};
