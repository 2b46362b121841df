// SPDX-License-Identifier: MIT
#include "Component.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

using Wrapper = common_RunWrapper;

// clang-format off
const Component components[] = {
    {"runkest", Wrapper::Parallel | Wrapper::Remote,                    &Wrapper::setupKestProcess},
    {"prekest", {},                                                     &Wrapper::setupPrekestProcess},
    {"optkest", Wrapper::Parallel | Wrapper::Remote | Wrapper::FarmOut, &Wrapper::setupOptkestProcess},
    {"amrkest", Wrapper::Parallel | Wrapper::Remote,                    &Wrapper::setupAmrkestProcess},
};
// clang-format on

} // namespace

const Component* Component::find(const QString& name)
{
    const auto* const found =
        std::find_if(std::cbegin(components), std::cend(components),
                     [&name](const Component& row) { return name == QLatin1String(row.name); });
    return found == std::cend(components) ? nullptr : found;
}

QString Component::names(common_RunWrapper::RunOptions options)
{
    QStringList result;
    for (const Component& component : components) {
        if ((component.options & options) == options) {
            result.append(QLatin1String(component.name));
        }
    }
    return result.join(QStringLiteral(", "));
}
