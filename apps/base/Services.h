// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct ApplicationIdentity;

/// What the suite's libraries ask an application for. The services are set as long as this lives;
/// those that show something, icons, pictures and help, only where there is a QApplication, which
/// must live longer.
class Services
{
public:
    /// Non-interactive: messages go to standard error and no question is asked.
    Services(const ApplicationIdentity& identity, bool nonInteractive);
    ~Services();

    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

private:
    struct Objects;

    std::unique_ptr<Objects> m_objects;
};
