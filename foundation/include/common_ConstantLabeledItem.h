// SPDX-License-Identifier: MIT
#pragma once

#include <common_Label.h>
#include <kest_foundation_export.h>

/// A reference-counted object whose label never changes.
class KEST_FOUNDATION_EXPORT common_ConstantLabeledItem
{
public:
    virtual void reference() = 0;
    virtual void dereference() = 0;
    virtual int getRefCount() const = 0;
    virtual ~common_ConstantLabeledItem();

    /// The label, as doGetConstantLabel() gives it.
    virtual common_Label getLabel() const;

protected:
    common_ConstantLabeledItem() = default;
    common_ConstantLabeledItem(const common_ConstantLabeledItem&) = default;
    common_ConstantLabeledItem& operator=(const common_ConstantLabeledItem&) = default;

    /// Must return the same label in every call.
    virtual common_Label doGetConstantLabel() const = 0;
};
