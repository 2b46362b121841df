#ifndef SERVICES_H
#define SERVICES_H

#include <memory>

/// What the suite's libraries ask an application for. The services are set as long as this lives.
class Services
{
public:
    /// Non-interactive: messages go to standard error and nobody is asked anything.
    explicit Services(bool nonInteractive);
    ~Services();

    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

private:
    struct Objects;

    std::unique_ptr<Objects> m_objects;
};

#endif
