// SPDX-License-Identifier: MIT
#include "TypeWord.h"

namespace {

// Indexed by common_IProcessMessage::Type.
constexpr const char* words[] = {"output",  "line feed", "percentage", "total percentage", "error",
                                 "warning", "notice",    "file",       "variable"};

} // namespace

QString typeWord(common_IProcessMessage::Type type)
{
    return QLatin1String(words[type]);
}
