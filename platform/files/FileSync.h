#pragma once

class QFile;

/// Puts what was written into an open file onto its disk, where a power cut cannot take it. False
/// when the system reports that it could not; the file system decides how long it takes.
bool syncToDisk(QFile& file);
