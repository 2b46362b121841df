// SPDX-License-Identifier: MIT
#include <common_ConstantLabeledItem.h>
#include <common_DomainEntity.h>
#include <common_IValidatable.h>

common_IValidatable::~common_IValidatable() = default;

common_DomainEntity::~common_DomainEntity() = default;

common_ConstantLabeledItem::~common_ConstantLabeledItem() = default;

common_Label common_ConstantLabeledItem::getLabel() const
{
    return doGetConstantLabel();
}
