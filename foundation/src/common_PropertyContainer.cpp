// SPDX-License-Identifier: MIT
#include <common_PropertyContainer.h>

#include <common_PropertyFactory.h>

#include <QStringList>

common_IPropertyContainer::~common_IPropertyContainer() = default;

common_PropertyContainer::common_PropertyContainer() = default;

// NOLINTBEGIN(*-init): gcc wants the bases named, and they stay empty
common_PropertyContainer::common_PropertyContainer(const common_PropertyContainer& other)
    : common_IPropertyContainer()
    , common_ObservableVia<common_PropertyContainerObserver>()
    , common_IPropertyContainerObserverFor<SelfObserving>()
    , m_properties(other.m_properties)
{}
// NOLINTEND(*-init)

common_PropertyContainer& common_PropertyContainer::operator=(const common_PropertyContainer& other)
{
    m_properties = other.m_properties;
    return *this;
}

common_PropertyContainer::~common_PropertyContainer() = default;

bool common_PropertyContainer::hasProperty(const QString& name) const
{
    return m_properties.count(name) > 0;
}

QStringList common_PropertyContainer::getProperties() const
{
    QStringList held;
    const QStringList registered = common_PropertyFactory::names();
    for (const QString& name : registered) {
        if (hasProperty(name)) {
            held.append(name);
        }
    }
    return held;
}

common_Property common_PropertyContainer::operator[](const QString& name) const
{
    const auto found = m_properties.find(name);
    return found != m_properties.cend()
               ? found->second
               : common_Property(common_PropertyFactory::getMetaData(name));
}

common_PropertyReference common_PropertyContainer::operator[](const QString& name)
{
    auto found = m_properties.find(name);
    if (found == m_properties.end()) {
        found =
            m_properties.emplace(name, common_Property(common_PropertyFactory::getMetaData(name)))
                .first;
    }
    return common_PropertyReference(*this, found->second);
}

void common_PropertyContainer::propertyValueChanged(const common_Property& property)
{
    // An observer may assign again or destroy the container.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const common_Property value = property;
    notifyObservers([&value](common_PropertyContainerObserver& observer) {
        observer.propertyValueChanged(value);
    });
}
