// SPDX-License-Identifier: MIT
#include "common_IniRepair.h"

#include <algorithm>

namespace {

constexpr int mostOpenGroups = 1000;

bool isLineEnd(char character)
{
    return character == '\n' || character == '\r';
}

// "[group" with the closing bracket missing.
bool isOpenGroup(const char* begin, const char* end)
{
    const char* const first = std::find_if(
        begin, end, [](char character) { return character != ' ' && character != '\t'; });
    return first != end && *first == '[' && std::find(first, end, ']') == end;
}

// Calls visit(begin, end) with each line, without its end.
template <typename Visit>
void forEachLine(const QByteArray& content, Visit visit)
{
    const char* begin = content.cbegin();
    while (begin != content.cend()) {
        const char* const end = std::find_if(begin, content.cend(), isLineEnd);
        visit(begin, end);
        begin = end == content.cend() ? end : end + 1;
    }
}

} // namespace

bool common_IniRepair::isNeeded(const QByteArray& content)
{
    int openGroups = 0;
    forEachLine(content, [&openGroups](const char* begin, const char* end) {
        openGroups += isOpenGroup(begin, end) ? 1 : 0;
    });
    return openGroups > mostOpenGroups;
}

QByteArray common_IniRepair::repaired(const QByteArray& content)
{
    QByteArray result;
    result.reserve(content.size() + content.size() / 2);
    forEachLine(content, [&result](const char* begin, const char* end) {
        result.append(begin, static_cast<int>(end - begin));
        result.append(isOpenGroup(begin, end) ? "]\n" : "\n");
    });
    return result;
}
