// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>

#include <QString>

/// The types of messages in words, which scripts may rely on: "total percentage".
QString typeWord(common_IProcessMessage::Type type);
