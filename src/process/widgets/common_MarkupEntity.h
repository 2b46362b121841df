// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QStringView;

/// The character of an entity, given by the text between "&" and ";": its name, or "#" and its
/// number in decimal, or in hexadecimal behind an "x". Null when there is no such entity.
QString common_markupEntity(QStringView entity);
