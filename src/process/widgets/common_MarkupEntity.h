#pragma once

class QString;
class QStringView;

/// The character of an entity, given as what stands between "&" and ";": its name, or "#" and its
/// number, decimal or, behind an "x", hexadecimal. Null when there is no such entity.
QString common_markupEntity(QStringView entity);
