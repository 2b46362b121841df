#ifndef PAGE_H
#define PAGE_H

#include <QString>

/// Puts a text into a page, in place of what stands between its marks "<!-- FAULTS -->" and the
/// next
/// "<!-- end -->". False, after saying why, when that cannot be done; the page is as it was then.
bool putBetweenMarks(const QString& page, const QString& text);

#endif
