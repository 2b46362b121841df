// SPDX-License-Identifier: MIT
#include <common_PropertyFactory.h>

#include <common_Assert.h>
#include <common_PropertyMetaData.h>

#include <QStringList>

#include <map>

namespace {

struct Registry
{
    std::map<QString, common_PropertyMetaData> metaData; ///< references to its elements stay valid
    QStringList names;
};

// Created on first use: registration at load time may precede the static objects of this file.
Registry& registry()
{
    static Registry instance;
    return instance;
}

} // namespace

void common_PropertyFactory::addMetaData(const QString& name,
                                         const common_PropertyMetaData& metaData)
{
    COMMON_ASSERT_AT(!hasMetaData(name), "!hasMetaData(name)", "src/common_PropertyFactory.cpp",
                     __LINE__);
    registry().metaData[name] = metaData;
    registry().names.append(name);
}

common_PropertyMetaData& common_PropertyFactory::getMetaData(const QString& name)
{
    COMMON_ASSERT_AT(hasMetaData(name), "hasMetaData(name)", "src/common_PropertyFactory.cpp",
                     __LINE__);
    return registry().metaData[name];
}

bool common_PropertyFactory::hasMetaData(const QString& name)
{
    return registry().metaData.count(name) > 0;
}

QStringList common_PropertyFactory::names()
{
    return registry().names;
}
