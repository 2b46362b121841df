// SPDX-License-Identifier: MIT
#pragma once

class common_Property;

/// Receives the notifications of a property container.
template <typename TContainer>
class common_IPropertyContainerObserverFor
{
public:
    /// The property has been assigned this value, which may be the same as before.
    virtual void propertyValueChanged(const common_Property& property) = 0;

    virtual ~common_IPropertyContainerObserverFor() = default;

protected:
    common_IPropertyContainerObserverFor() = default;
    common_IPropertyContainerObserverFor(const common_IPropertyContainerObserverFor&) = default;
    common_IPropertyContainerObserverFor&
    operator=(const common_IPropertyContainerObserverFor&) = default;
};
