// SPDX-License-Identifier: MIT
#pragma once

#include <common_IPropertyContainer.h>
#include <common_IPropertyContainerObserverFor.h>
#include <common_MultiObserverOf.h>
#include <common_ObservableVia.h>
#include <common_ObserverConnection.h>
#include <common_ObserverOf.h>
#include <kest_foundation_export.h>

#include <QString>

#include <map>

class common_PropertyContainer;

/// Tag of the observer interface through which a container observes itself.
struct SelfObserving
{};

using common_PropertyContainerObserver =
    common_IPropertyContainerObserverFor<common_PropertyContainer>;

/// Holds properties by name and notifies its observers of new values.
///
/// Observers derive from common_ObserverOf<common_PropertyContainerObserver>. A copy holds the same
/// values and has no observers: those of the source still observe the source only.
class KEST_FOUNDATION_EXPORT common_PropertyContainer
    : public common_IPropertyContainer,
      public common_ObservableVia<common_PropertyContainerObserver>,
      public common_IPropertyContainerObserverFor<SelfObserving>
{
public:
    ~common_PropertyContainer() override;

    /// Whether a property of that name is held.
    bool hasProperty(const QString& name) const override;
    QStringList getProperties() const override;
    common_Property operator[](const QString& name) const override;
    common_PropertyReference operator[](const QString& name) override;

    /// Notifies the observers, in the order in which they started to observe.
    void propertyValueChanged(const common_Property& property) override;

protected:
    common_PropertyContainer();
    common_PropertyContainer(const common_PropertyContainer& other);
    common_PropertyContainer& operator=(const common_PropertyContainer& other);

private:
    std::map<QString, common_Property> m_properties; ///< references to its elements stay valid
};
