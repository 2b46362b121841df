#pragma once

class common_Property;

/// What a property container tells its observers.
template <typename TContainer>
class common_IPropertyContainerObserverFor
{
public:
    /// The property has been given this value, perhaps the same as before.
    virtual void propertyValueChanged(const common_Property& property) = 0;

    virtual ~common_IPropertyContainerObserverFor() = default;

protected:
    common_IPropertyContainerObserverFor() = default;
    common_IPropertyContainerObserverFor(const common_IPropertyContainerObserverFor&) = default;
    common_IPropertyContainerObserverFor&
    operator=(const common_IPropertyContainerObserverFor&) = default;
};
