// SPDX-License-Identifier: MIT
#pragma once

#include <common_IApplication.h>

/// How this program was started.
class Application : public common_IApplication
{
public:
    explicit Application(bool nonInteractive) : m_nonInteractive(nonInteractive) {}

    bool isNonInteractive() const override { return m_nonInteractive; }

private:
    bool m_nonInteractive;
};
